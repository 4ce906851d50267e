' Translates the lines that a switch printed, one after the other, and shows every call in them.
'
'     cscript //nologo translate.vbs CONFIGURATION.cfg CAPTURE.txt
'
' The words it prints are plain ASCII, since the console's code page may lack accents.
Option Explicit

If WScript.Arguments.Count <> 2 Then
    WScript.Echo "Uso: cscript //nologo translate.vbs CONFIGURACION.cfg CAPTURA.txt"
    WScript.Quit 2
End If

Dim widths, types, transfers, switch, translator, record, controls, capture, line, lines, calls, failure
widths = Array(10, 8, -8, -5, 15, 8, 10, 10, 25, 10, 10) ' negative: aligned to the right
types = Array("No analizada", "Indefinida", "Entrante", "Saliente", "Inter-extension", "Inter-troncal", "Cuenta")
transfers = Array("-", "Inicio", "En curso", "Fin")

Set switch = CreateObject("Conmuta.clsCfgConmut")
switch.Abrir WScript.Arguments(0)
Set translator = CreateObject("Conmuta.clsTradEST")
Set translator.Conmutador = switch
Set record = translator.InfoLlamada ' the same object for every line

' Control characters come from a bad cable or a page break; left in, they would shift the columns.
Set controls = New RegExp
controls.Pattern = "[\x00-\x1F]"
controls.Global = True

WScript.Echo "Conmutador: " & switch.NombreConmutador
WScript.Echo Columns(Array("Fecha", "Hora", "Duracion", "Ring", "Tipo", "Transf.", _
    "Emisor", "Receptor", "Telefono", "Ext.transf", "Cuenta"))

lines = 0
calls = 0
Set capture = CreateObject("Scripting.FileSystemObject").OpenTextFile(WScript.Arguments(1))
Do Until capture.AtEndOfStream
    line = controls.Replace(capture.ReadLine, "")
    lines = lines + 1

    On Error Resume Next ' a line that cannot be translated must not stop the next ones
    translator.Llamada = line
    failure = Err.Number
    On Error GoTo 0

    If failure <> 0 Then
        WScript.Echo "! linea " & lines & ": error " & failure
    ElseIf record.EsValido Then
        WScript.Echo CallLine(record)
        calls = calls + 1
    End If
Loop
WScript.Echo lines & " lineas, " & calls & " llamadas"

Function CallLine(r)
    Dim started, clock, duration
    started = TwoDigits(r.Dia(1)) & "/" & TwoDigits(r.Mes(1)) & "/" & r.Anio(1)
    clock = TwoDigits(r.Horas(1)) & ":" & TwoDigits(r.Minutos(1)) & ":" & TwoDigits(r.Segundos(1))
    duration = r.Duracion
    If r.Anio(2) <> 0 Then duration = "?" ' still a moment: no difference could be computed
    CallLine = Columns(Array(started, clock, duration, r.Ring, types(r.TipoLlamada), transfers(r.Atributos), _
        r.Emisor, r.Receptor, r.Telefono, r.ExtensionTransferida, r.CodigoCuenta))
End Function

Function Columns(values)
    Dim i, padding
    For i = 0 To UBound(values)
        padding = Abs(widths(i)) - Len(values(i))
        If padding < 0 Then padding = 0
        If widths(i) < 0 Then
            Columns = Columns & Space(padding) & values(i) & " "
        Else
            Columns = Columns & values(i) & Space(padding) & " "
        End If
    Next
    Columns = RTrim(Columns)
End Function

Function TwoDigits(number)
    If number < 10 Then TwoDigits = "0" & number Else TwoDigits = CStr(number)
End Function
