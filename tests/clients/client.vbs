' A client in VBScript: what client.cpp does, late bound. Events need a host that connects them.
Option Explicit

Dim cfg, translator, record, controls, capture, line, number, place, caso, tipo
Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.Abrir WScript.Arguments(0)
Set translator = CreateObject("Conmuta.clsTradEST")
Set translator.Conmutador = cfg
Set record = translator.InfoLlamada

Set controls = New RegExp
controls.Pattern = "[\x00-\x1F\x7F]"
controls.Global = True

Set capture = CreateObject("Scripting.FileSystemObject").OpenTextFile(WScript.Arguments(1))
number = 0
Do Until capture.AtEndOfStream
    number = number + 1
    Translate controls.Replace(capture.ReadLine, "")
Loop
If cfg.Caso = 4 Then Translate "--------"
For place = 1 To 100
    translator.QuitaLlamadaLista place
Next

WScript.Echo "== propiedades"
line = "01/14/19 08:58AM 1201  01 5550142                        00:04'31"
translator.Llamada = line
WScript.Echo "Marca=" & cfg.Marca
WScript.Echo "Version=" & cfg.Version
WScript.Echo "Modificado=" & YesNo(cfg.Modificado)
WScript.Echo "TamMaxSeparador=" & cfg.TamMaxSeparador
number = 70000
cfg.IDCfg = number
WScript.Echo "IDCfg=" & cfg.IDCfg
number = 5
cfg.DATOActivo = number
WScript.Echo "DATOPos=" & cfg.DATOPos
WScript.Echo "Conmutador.Modelo=" & translator.Conmutador.Modelo
WScript.Echo "Llamada=" & translator.Llamada
WScript.Echo "Anio=" & record.Anio(1)
WScript.Echo "Fecha=" & CLng(record.Fecha)
WScript.Echo "Hora=" & CLng(record.Hora * 86400)
WScript.Echo "EsValido=" & YesNo(record.EsValido)
translator.AltaLlamadaLista
WScript.Echo "BuscaLlamadaTroncalLista=" & translator.BuscaLlamadaTroncalLista("01")
caso = 5
cfg.Caso = caso
WScript.Echo "Caso=" & cfg.Caso
tipo = 7
record.TipoLlamada = tipo
WScript.Echo "TipoLlamada=" & record.TipoLlamada
cfg.Marca = "ACME"

WScript.Echo "== error"
On Error Resume Next
cfg.Exportar "  "
WScript.Echo Hex(Err.Number) & " " & Err.Source & ": " & Err.Description

Sub Translate(line)
    On Error Resume Next
    translator.Llamada = line
    If Err.Number <> 0 Then
        WScript.Echo "! linea " & number & ": error " & (Err.Number And &HFFFF&)
        Exit Sub
    End If
    On Error GoTo 0
    If record.EsValido Then WScript.Echo CallLine(record)
End Sub

Function CallLine(r)
    Dim duration
    duration = r.Duracion
    If r.Anio(2) <> 0 Or r.Mes(2) <> 0 Or r.Dia(2) <> 0 Or duration < 0 Then duration = "?"
    CallLine = Digits(r.Dia(1)) & "/" & Digits(r.Mes(1)) & "/" & r.Anio(1) & ";" & Digits(r.Horas(1)) & ":" & _
        Digits(r.Minutos(1)) & ":" & Digits(r.Segundos(1)) & ";" & duration & ";" & r.Ring & ";" & _
        r.TipoLlamada & ";" & r.Atributos & ";" & r.Emisor & ";" & r.Receptor & ";" & r.Telefono & ";" & _
        r.ExtensionTransferida & ";" & r.CodigoCuenta
End Function

Function Digits(number)
    If number < 10 Then Digits = "0" & number Else Digits = CStr(number)
End Function

Function YesNo(value)
    If value Then YesNo = "si" Else YesNo = "no"
End Function
