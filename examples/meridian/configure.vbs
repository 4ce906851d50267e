' Builds the configuration of a Nortel Meridian, whose records begin with a letter, and saves it.
'
'     cscript //nologo configure.vbs CONFIGURATION.cfg
'
'          1         2         3         4         5         6         7         8
' 12345678901234567890123456789012345678901234567890123456789012345678901234567890
' N 027 00 DN7425  T052000 04/04 14:03 00:01:32 5551212
' N 028 00 T047000 DN2221  04/04 14:05 00:12:04
' S 032 00 DN7447  T038000 04/04 14:15          8761344
Option Explicit

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "Uso: cscript //nologo configure.vbs CONFIGURACION.cfg"
    WScript.Quit 2
End If

' The type library's values, which a script has to declare for itself.
Const emCasoNortelMeridian01 = 3
Const emValorNumerico = 1
Const emParamFechaDia = 2
Const emParamFechaMes = 3
Const emParamFechaHoras = 5
Const emParamFechaMinutos = 6
Const emParamDuracionHoras = 11
Const emParamDuracionMinutos = 12
Const emParamDuracionSegundos = 13
Const emParamCodigoCuenta = 17
Const emParamTelefonoEntrante = 18
Const emParamTelefonoSaliente = 19
Const emParamTelefonoInterTroncal = 21
Const emParamTroncalEntrante = 30
Const emParamExtensionEntrante = 31
Const emParamTroncalSaliente = 32
Const emParamExtensionSaliente = 33
Const emParamExtension1InterExtension = 34
Const emParamExtension2InterExtension = 35
Const emParamTroncal1InterTroncal = 36
Const emParamTroncal2InterTroncal = 37
Const emDatoCteIdentEntrante = 4
Const emDatoCteIdentEntranteAND = 5
Const emDatoCteIdentSaliente = 7
Const emDatoCteIdentSalienteAND = 8
Const emDatoCteIdentInterExtension = 10
Const emDatoCteIdentInterExtensionAND = 11
Const emDatoCteIdentInterTroncal = 13
Const emDatoCteIdentInterTroncalAND = 14
Const emPuertoSerialDB25DB25 = 4

Dim cfg
Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.Marca = "Nortel"
cfg.Modelo = "Meridian 1"
cfg.Comentarios = "Registros A, N, S, X y E"
cfg.Separador = vbCrLf
cfg.Caso = emCasoNortelMeridian01

' What                                            position, size, type
' Date mm/dd, which has no year: the current one is taken; time hh:mm, duration hh:mm:ss.
Dato emParamFechaMes,                                26,  2, emValorNumerico
Dato emParamFechaDia,                                29,  2, emValorNumerico
Dato emParamFechaHoras,                              32,  2, emValorNumerico
Dato emParamFechaMinutos,                            35,  2, emValorNumerico
Dato emParamDuracionHoras,                           38,  2, emValorNumerico
Dato emParamDuracionMinutos,                         41,  2, emValorNumerico
Dato emParamDuracionSegundos,                        44,  2, emValorNumerico

' The account code is read from A records only, where it takes the place of the number.
Dato emParamCodigoCuenta,                            47, 12, emValorNumerico

' From a trunk to a set: incoming.
Constante emDatoCteIdentEntrante,                    10, "T"
Constante emDatoCteIdentEntranteAND,                 18, "DN"
Dato emParamTelefonoEntrante,                        47, 18, emValorNumerico
Dato emParamTroncalEntrante,                         10,  7, emValorNumerico
Dato emParamExtensionEntrante,                       18,  7, emValorNumerico

' From a set to a trunk: outgoing.
Constante emDatoCteIdentSaliente,                    10, "DN"
Constante emDatoCteIdentSalienteAND,                 18, "T"
Dato emParamTelefonoSaliente,                        47, 18, emValorNumerico
Dato emParamExtensionSaliente,                       10,  7, emValorNumerico
Dato emParamTroncalSaliente,                         18,  7, emValorNumerico

' From set to set.
Constante emDatoCteIdentInterExtension,              10, "DN"
Constante emDatoCteIdentInterExtensionAND,           18, "DN"
Dato emParamExtension1InterExtension,                10,  7, emValorNumerico
Dato emParamExtension2InterExtension,                18,  7, emValorNumerico

' From trunk to trunk.
Constante emDatoCteIdentInterTroncal,                10, "T"
Constante emDatoCteIdentInterTroncalAND,             18, "T"
Dato emParamTelefonoInterTroncal,                    47, 18, emValorNumerico
Dato emParamTroncal1InterTroncal,                    10,  7, emValorNumerico
Dato emParamTroncal2InterTroncal,                    18,  7, emValorNumerico

' The cable: a straight modem cable between two DB25. Computer pin, switch pin.
cfg.PuertoActivo = emPuertoSerialDB25DB25
Wire 2, 2
Wire 3, 3
Wire 4, 4
Wire 5, 5
Wire 6, 6
Wire 7, 7
Wire 8, 8
Wire 20, 20

cfg.GuardarComo WScript.Arguments(0)

Sub Dato(kind, position, size, valueType)
    cfg.DATOActivo = kind
    cfg.DATOPos = position
    cfg.DATOTam = size
    cfg.TipoDatoDATO = valueType ' last: a position or a size makes the slot numeric again
End Sub

Sub Constante(kind, position, text)
    cfg.CTEActivo = kind
    cfg.CTEPos = position
    cfg.Constante = text
End Sub

Sub Wire(computerPin, switchPin)
    cfg.PinIZQ = computerPin
    cfg.PinDER = switchPin
    cfg.PinesConectados = True
End Sub
