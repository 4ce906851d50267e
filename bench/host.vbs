' A script host at work: hands the lines of a capture to the translator over and over and reads nine
' properties of each call. Shows how many calls were valid.
'
'     cscript //nologo host.vbs CONFIGURATION.cfg CAPTURE.txt LINES
'     cscript //nologo host.vbs CONFIGURATION.cfg CAPTURE.txt LINES idle     the loop alone
Option Explicit

Dim switch, translator, record, capture, lines(), count, idle, i, line, valid
Dim started, clock, duration, kind, caller, callee, phone, account

Set switch = CreateObject("Conmuta.clsCfgConmut")
switch.Abrir WScript.Arguments(0)
Set translator = CreateObject("Conmuta.clsTradEST")
Set translator.Conmutador = switch
Set record = translator.InfoLlamada

Set capture = CreateObject("Scripting.FileSystemObject").OpenTextFile(WScript.Arguments(1))
count = 0
Do Until capture.AtEndOfStream
    line = capture.ReadLine
    If Left(line, 2) <> "# " Then ' the head
        ReDim Preserve lines(count)
        lines(count) = line
        count = count + 1
    End If
Loop

idle = WScript.Arguments.Count > 3
valid = 0
For i = 1 To CLng(WScript.Arguments(2))
    line = lines(i Mod count)
    If Not idle Then
        translator.Llamada = line
        If record.EsValido Then valid = valid + 1
        started = record.Fecha
        clock = record.Hora
        duration = record.Duracion
        kind = record.TipoLlamada
        caller = record.Emisor
        callee = record.Receptor
        phone = record.Telefono
        account = record.CodigoCuenta
    End If
Next
WScript.Echo valid & " calls"
