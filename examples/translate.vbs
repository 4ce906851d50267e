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

Const emCasoNortelNorstar0x32SMDR6 = 4

Dim widths, types, transfers, switch, translator, record, controls, capture, line
Dim place, number, lines, calls, errors, inHead
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
controls.Pattern = "[\x00-\x1F\x7F]"
controls.Global = True

WScript.Echo "Conmutador: " & switch.NombreConmutador
WScript.Echo Columns(Array("Fecha", "Hora", "Duracion", "Ring", "Tipo", "Transf.", _
    "Emisor", "Receptor", "Telefono", "Ext.transf", "Cuenta"))

number = 0
lines = 0
calls = 0
errors = 0
inHead = True ' a capture may begin with comments: where and when it was taken
Set capture = CreateObject("Scripting.FileSystemObject").OpenTextFile(WScript.Arguments(1))
Do Until capture.AtEndOfStream
    line = capture.ReadLine
    number = number + 1
    inHead = inHead And Left(line, 2) = "# "
    If Not inHead Then
        lines = lines + 1
        Translate controls.Replace(line, "")
    End If
Loop

' A Norstar delivers the last call of a capture on the separator of the next one.
If switch.Caso = emCasoNortelNorstar0x32SMDR6 Then Translate "--------"

' Calls that still wait for the end of their transfer will not meet it any more: the capture has
' ended. In a translator that goes on they would wait forever, and join a later call of their trunk.
For place = 1 To 100
    translator.QuitaLlamadaLista place
Next
WScript.Echo lines & " lineas, " & calls & " llamadas, " & errors & " errores"

Sub Translate(line)
    On Error Resume Next ' a line that cannot be translated must not stop the next ones
    translator.Llamada = line
    If Err.Number <> 0 Then ' half a record is left, whose EsValido says nothing
        errors = errors + 1
        WScript.Echo "! linea " & number & ": error " & Err.Number
        Exit Sub
    End If
    On Error GoTo 0

    If record.EsValido Then
        WScript.Echo CallLine(record)
        calls = calls + 1
    End If
End Sub

Function CallLine(r)
    Dim started, clock, duration
    started = TwoDigits(r.Dia(1)) & "/" & TwoDigits(r.Mes(1)) & "/" & r.Anio(1)
    clock = TwoDigits(r.Horas(1)) & ":" & TwoDigits(r.Minutos(1)) & ":" & TwoDigits(r.Segundos(1))
    duration = r.Duracion
    ' Still a date: no difference could be computed. Less than nothing: a clock that was set back.
    If r.Anio(2) <> 0 Or r.Mes(2) <> 0 Or r.Dia(2) <> 0 Or duration < 0 Then duration = "?"
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
