' Shows the windows of the component, one after the other; each waits until it is closed.
'
'     cscript //nologo windows.vbs CONFIGURATION.cfg ["A LINE OF THE SWITCH"]
Option Explicit

If WScript.Arguments.Count < 1 Then
    WScript.Echo "Uso: cscript //nologo windows.vbs CONFIGURACION.cfg [LINEA]"
    WScript.Quit 2
End If

Dim switch, translator
Set switch = CreateObject("Conmuta.clsCfgConmut")
switch.Abrir WScript.Arguments(0)

' What the configuration says.
switch.MostrarInformacionConfiguracion

' What it makes of a line.
If WScript.Arguments.Count > 1 Then
    Set translator = CreateObject("Conmuta.clsTradEST")
    Set translator.Conmutador = switch
    translator.Llamada = WScript.Arguments(1)
    translator.MuestraInfoTrad
End If

' The cable, with permission to change it. Accepted changes are in the object, not yet in the file.
switch.EDConfigSeriales True
If switch.Modificado Then WScript.Echo "El cable fue modificado." Else WScript.Echo "Sin cambios."
