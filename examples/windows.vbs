' Shows the windows of the component, one after the other; each waits until it is closed.
'
'     cscript //nologo windows.vbs CONFIGURATION.cfg ["A LINE OF THE SWITCH"]
Option Explicit

If WScript.Arguments.Count < 1 Then
    WScript.Echo "Uso: cscript //nologo windows.vbs CONFIGURACION.cfg [LINEA]"
    WScript.Quit 2
End If

Dim switch, translator, controls, failure
Set switch = CreateObject("Conmuta.clsCfgConmut")
switch.Abrir WScript.Arguments(0)

' What the configuration says.
switch.MostrarInformacionConfiguracion

' What it makes of a line.
If WScript.Arguments.Count > 1 Then
    Set translator = CreateObject("Conmuta.clsTradEST")
    Set translator.Conmutador = switch
    Set controls = New RegExp ' left in, they would shift the columns
    controls.Pattern = "[\x00-\x1F\x7F]"
    controls.Global = True
    On Error Resume Next
    translator.Llamada = controls.Replace(WScript.Arguments(1), "")
    failure = Err.Number
    On Error GoTo 0
    If failure = 0 Then
        translator.MuestraInfoTrad
    Else
        WScript.Echo "La linea no se puede traducir: error " & failure
    End If
End If

' The cable, with permission to change it. Accepted changes are in the object, not yet in the file.
switch.EDConfigSeriales True
If switch.Modificado Then WScript.Echo "El cable fue modificado." Else WScript.Echo "Sin cambios."
