' Builds the configuration of a switch that prints when a call began and when it ended, but no
' duration, and saves it.
'
'     cscript //nologo configure.vbs CONFIGURATION.cfg
'
'          1         2         3         4         5         6         7         8
' 1234567890123456789012345678901234567890123456789012345678901234567890123456789012345678
' S 14/03/2019 09:12:33 14/03/2019 09:15:48 201  0701          5550142
' E 14/03/2019 09:14:05 14/03/2019 09:21:40 205  0702 00:00:08 5550177              P-4411
' I 14/03/2019 09:20:11 14/03/2019 09:20:59 201       00:00:04 214
Option Explicit

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "Uso: cscript //nologo configure.vbs CONFIGURACION.cfg"
    WScript.Quit 2
End If

' The type library's values, which a script has to declare for itself.
Const emCasoRestaFechasDuracion = 5
Const emValorNumerico = 1
Const emValorCadena = 3
Const emParamFechaDia = 2
Const emParamFechaMes = 3
Const emParamFechaAnio = 4
Const emParamFechaHoras = 5
Const emParamFechaMinutos = 6
Const emParamFechaSegundos = 7
Const emParamDuracionDia = 8
Const emParamDuracionMes = 9
Const emParamDuracionAnio = 10
Const emParamDuracionHoras = 11
Const emParamDuracionMinutos = 12
Const emParamDuracionSegundos = 13
Const emParamRingHoras = 14
Const emParamRingMinutos = 15
Const emParamRingSegundos = 16
Const emParamCodigoCuenta = 17
Const emParamTelefonoEntrante = 18
Const emParamTelefonoSaliente = 19
Const emParamTroncalEntrante = 30
Const emParamExtensionEntrante = 31
Const emParamTroncalSaliente = 32
Const emParamExtensionSaliente = 33
Const emParamExtension1InterExtension = 34
Const emParamExtension2InterExtension = 35
Const emDatoCteIdentEntrante = 4
Const emDatoCteIdentEntranteAND = 5
Const emDatoCteIdentSaliente = 7
Const emDatoCteIdentSalienteAND = 8
Const emDatoCteIdentInterExtension = 10
Const emDatoCteIdentInterExtensionAND = 11
Const emDatoCteIdentInterTroncal = 13
Const emDatoCteIdentInterTroncalOR = 15

Dim cfg
Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.Marca = "Generico"
cfg.Modelo = "Inicio y fin"
cfg.Comentarios = "Duracion por resta de fechas"
cfg.Separador = vbCrLf
cfg.Caso = emCasoRestaFechasDuracion

' What                                            position, size, type
' The duration is the first moment minus the second, so the first is the end of the call...
Dato emParamFechaDia,                                23,  2, emValorNumerico
Dato emParamFechaMes,                                26,  2, emValorNumerico
Dato emParamFechaAnio,                               29,  4, emValorNumerico
Dato emParamFechaHoras,                              34,  2, emValorNumerico
Dato emParamFechaMinutos,                            37,  2, emValorNumerico
Dato emParamFechaSegundos,                           40,  2, emValorNumerico

' ... and the second, in the columns of the duration, its beginning.
Dato emParamDuracionDia,                              3,  2, emValorNumerico
Dato emParamDuracionMes,                              6,  2, emValorNumerico
Dato emParamDuracionAnio,                             9,  4, emValorNumerico
Dato emParamDuracionHoras,                           14,  2, emValorNumerico
Dato emParamDuracionMinutos,                         17,  2, emValorNumerico
Dato emParamDuracionSegundos,                        20,  2, emValorNumerico

' Ring hh:mm:ss and account, whose codes hold letters.
Dato emParamRingHoras,                               53,  2, emValorNumerico
Dato emParamRingMinutos,                             56,  2, emValorNumerico
Dato emParamRingSegundos,                            59,  2, emValorNumerico
Dato emParamCodigoCuenta,                            83,  8, emValorCadena

' The first letter tells the kind of call; the colon of the end's hour, that it is all there.
Constante emDatoCteIdentEntrante,                     1, "E"
Constante emDatoCteIdentEntranteAND,                 36, ":"
Dato emParamTelefonoEntrante,                        62, 20, emValorNumerico
Dato emParamTroncalEntrante,                         48,  4, emValorNumerico
Dato emParamExtensionEntrante,                       43,  4, emValorNumerico
Constante emDatoCteIdentSaliente,                     1, "S"
Constante emDatoCteIdentSalienteAND,                 36, ":"
Dato emParamTelefonoSaliente,                        62, 20, emValorNumerico
Dato emParamExtensionSaliente,                       43,  4, emValorNumerico
Dato emParamTroncalSaliente,                         48,  4, emValorNumerico
Constante emDatoCteIdentInterExtension,               1, "I"
Constante emDatoCteIdentInterExtensionAND,           36, ":"
Dato emParamExtension1InterExtension,                43,  4, emValorNumerico
Dato emParamExtension2InterExtension,                62,  4, emValorNumerico

' A line that has a date and is none of these (a cut one, another letter), or a date that lost a
' character, gets a type whose parties have no columns: such a call is never valid.
Constante emDatoCteIdentInterTroncal,                 5, "/"
Constante emDatoCteIdentInterTroncalOR,               4, "/"

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
