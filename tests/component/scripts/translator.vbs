' A translator as VBScript sees it: its objects, and lines of each case.
Option Explicit
Dim trad, cfg, rec, line
Set trad = CreateObject("Conmuta.clsTradEST")
Set rec = trad.InfoLlamada
Set cfg = NewConfig()

Equal "a new one has no configuration", trad.Conmutador Is Nothing, True
Equal "a new one has no line", trad.Llamada, ""
Set trad.Conmutador = cfg
Equal "the same configuration comes back", trad.Conmutador Is cfg, True
Set trad.Conmutador = Nothing
Equal "nothing is accepted", trad.Conmutador Is Nothing, True
trad.Conmutador = cfg
Equal "a plain assignment does, too", trad.Conmutador Is cfg, True
Equal "the call record stays the same", trad.InfoLlamada Is rec, True

line = "03:15:20 0205 T001 5551234567"
trad.Llamada = line
Equal "a line is translated", rec.EsValido, True
Equal "its hour", rec.Horas(1), 3
Equal "its caller", rec.Emisor, "0205"
Equal "its callee", rec.Receptor, "T001"
Equal "its number", rec.Telefono, "5551234567"
Equal "it is outgoing where nothing says otherwise", rec.TipoLlamada, 3
Equal "the call record is still the same", trad.InfoLlamada Is rec, True

trad.Llamada = vbCrLf & vbLf & vbCr
Equal "line ends are no line", trad.Llamada, ""
Equal "line ends clear the record", rec.EsValido, False
trad.Llamada = vbCrLf & line & vbCrLf
Equal "leading line ends are dropped", trad.Llamada, line & vbCrLf

DefineConstant cfg, 2, 31, "AM"
trad.Llamada = line & "  PM"
Equal "without the morning marker it is afternoon", rec.Horas(1), 15
trad.Llamada = "12:15:00 0205 T001 5551234567  PM"
Equal "noon stays noon", rec.Horas(1), 12

' The last trunk of a transfer is found by its name; who parked it waits in the list.
Set cfg = NewConfig()
cfg.Caso = 2
DefineConstant cfg, 7, 31, "O"
DefineConstant cfg, 18, 32, "S"
DefineConstant cfg, 19, 32, "E"
DefineItem cfg, 24, 20, 10, 1
DefineItem cfg, 43, 10, 4, 3
DefineItem cfg, 42, 15, 4, 3
DefineItem cfg, 25, 20, 10, 1
DefineItem cfg, 45, 10, 4, 3
DefineItem cfg, 44, 15, 4, 3
Set trad.Conmutador = cfg
trad.Llamada = "10:00:00 0205 T009 5550000009 OE"
Equal "an end without a start stays as it is", rec.Telefono & " " & rec.ExtensionTransferida, "5550000009 "
trad.Llamada = "10:00:00 0205 T001 5551234567 OS"
Equal "a start of a transfer", rec.Atributos, 1
Equal "a start is parked", trad.BuscaLlamadaTroncalLista(" t001 "), 1
trad.Llamada = "10:05:00 0206 T001            OE"
Equal "an end of a transfer", rec.Atributos, 3
Equal "an end has the number of its start", rec.Telefono, "5551234567"
Equal "an end has the extension of its start", rec.ExtensionTransferida, "0205"
Equal "an end has its own caller", rec.Emisor, "0206"
Equal "an end frees the place", trad.BuscaLlamadaTroncalLista("T001"), 0
trad.Llamada = "10:05:00 0206 T001            O "
Equal "an outgoing call without a number is cleared", rec.EsValido, False

' Nortel Norstar: a block of lines gives one call.
Set cfg = NewConfig()
cfg.Caso = 4
DefineItem cfg, 11, 1, 2, 1
DefineItem cfg, 12, 4, 2, 1
DefineItem cfg, 13, 7, 2, 1
Set trad.Conmutador = cfg
trad.Llamada = "00:00:00   OUTGOING CALL"
trad.Llamada = "-------- 0205 T001"
Equal "a block begins with a cleared record", rec.EsValido, False
trad.Llamada = "00:00:05   DIGITS DIALED    555-1234"
Equal "a block goes on with a cleared record", rec.EsValido, False
trad.Llamada = "00:07:20   CALL RELEASED"
Equal "the end of a block gives the call", rec.EsValido, True
Equal "the call has its duration", rec.Duracion, 440
Equal "the call has the digits", rec.Telefono, "5551234"
trad.Llamada = "-------- 0205 T001"
Equal "the next block begins with a cleared record", rec.EsValido, False
On Error Resume Next
trad.Llamada = "corta"
FailsWith "a short line in a block is an invalid argument", 5, "Conmuta", _
    "Argumento o llamada a procedimiento no v" & Chr(&HE1) & "lida"
On Error GoTo 0

' Nortel Meridian: the first letter tells the record.
Set cfg = NewConfig()
cfg.Caso = 3
DefineConstant cfg, 7, 15, "T"
DefineItem cfg, 17, 20, 10, 1
Set trad.Conmutador = cfg
trad.Llamada = "A0:00:00 0205 T002 77"
Equal "an account code is no call", rec.EsValido, False
Equal "an account code is parked", trad.BuscaLlamadaTroncalLista("T002"), 1
trad.Llamada = "n0:00:00 0205 T002 5551234567"
Equal "a normal call takes the account code", rec.CodigoCuenta, "77"
Equal "and frees its place", trad.BuscaLlamadaTroncalLista("T002"), 0
trad.Llamada = "Z0:00:00 0205 T002 5551234567"
Equal "an unknown letter clears the record", rec.EsValido, False

trad.QuitaLlamadaLista 0
trad.QuitaLlamadaLista 101
Equal "places that are none are left alone", trad.BuscaLlamadaTroncalLista("T002"), 0

Set trad = Nothing
rec.Emisor = "0299"
Equal "the call record outlives its translator", rec.Emisor, "0299"

Function NewConfig()
    Set NewConfig = CreateObject("Conmuta.clsCfgConmut")
    NewConfig.Marca = "ACME"
    NewConfig.Modelo = "X1"
    DefineItem NewConfig, 5, 1, 2, 1
    DefineItem NewConfig, 33, 10, 4, 3
    DefineItem NewConfig, 32, 15, 4, 3
    DefineItem NewConfig, 19, 20, 10, 1
End Function

Sub DefineItem(config, kind, pos, size, valueType)
    config.DATOActivo = kind
    config.DATOPos = pos
    config.DATOTam = size
    config.TipoDatoDATO = valueType
End Sub

Sub DefineConstant(config, kind, pos, text)
    config.CTEActivo = kind
    config.Constante = text
    config.CTEPos = pos
End Sub
