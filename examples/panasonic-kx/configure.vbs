' Builds the configuration of a Panasonic KX that prints fixed columns, and saves it.
'
'     cscript //nologo configure.vbs CONFIGURATION.cfg
'
'          1         2         3         4         5         6         7         8
' 12345678901234567890123456789012345678901234567890123456789012345678901234567890
' 01/14/19 09:07AM *1204 03 18005550123                    00:12'40 98765
' 01/14/19 09:15AM 1210  01 <I>5550177                0'12 00:00'20 431211     TR
' 01/14/19 09:21AM 1201     EXT1215
Option Explicit

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "Uso: cscript //nologo configure.vbs CONFIGURACION.cfg"
    WScript.Quit 2
End If

' The type library's values, which a script has to declare for itself.
Const emCasoEstandar = 1
Const emValorNumerico = 1
Const emParamFechaDia = 2
Const emParamFechaMes = 3
Const emParamFechaAnio = 4
Const emParamFechaHoras = 5
Const emParamFechaMinutos = 6
Const emParamDuracionHoras = 11
Const emParamDuracionMinutos = 12
Const emParamDuracionSegundos = 13
Const emParamRingMinutos = 15
Const emParamRingSegundos = 16
Const emParamCodigoCuenta = 17
Const emParamTelefonoEntrante = 18
Const emParamTelefonoSaliente = 19
Const emParamTelefonoEntranteInicioTransferida = 22
Const emParamTelefonoSalienteInicioTransferida = 24
Const emParamTroncalEntrante = 30
Const emParamExtensionEntrante = 31
Const emParamTroncalSaliente = 32
Const emParamExtensionSaliente = 33
Const emParamExtension1InterExtension = 34
Const emParamExtension2InterExtension = 35
Const emParamTroncalEntranteInicioTransferida = 38
Const emParamExtensionEntranteInicioTransferida = 39
Const emParamTroncalSalienteInicioTransferida = 42
Const emParamExtensionSalienteInicioTransferida = 43
Const emDatoCteIdentificadorHorarioMatutinoFecha = 2
Const emDatoCteIdentEntrante = 4
Const emDatoCteIdentEntranteAND = 5
Const emDatoCteIdentEntranteOR = 6
Const emDatoCteIdentSaliente = 7
Const emDatoCteIdentSalienteAND = 8
Const emDatoCteIdentSalienteOR = 9
Const emDatoCteIdentInterExtension = 10
Const emDatoCteIdentInterExtensionAND = 11
Const emDatoCteIdentInterExtensionOR = 12
Const emDatoCteIdentInterTroncal = 13
Const emDatoCteIdentInterTroncalOR = 15
Const emDatoCteIdentEntranteInicioTransferida = 16
Const emDatoCteIdentSalienteInicioTransferida = 18
Const emPuertoSerialDB9DB9 = 1

Dim cfg
Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.Marca = "Panasonic"
cfg.Modelo = "KX-TD1232"
cfg.Comentarios = "Columnas fijas, reloj de 12 horas"
cfg.Separador = vbCrLf
cfg.Caso = emCasoEstandar

' What                                            position, size, type
' Date mm/dd/yy and time. AM marks the morning; without it, hours 1 to 11 gain 12.
Dato emParamFechaMes,                                 1,  2, emValorNumerico
Dato emParamFechaDia,                                 4,  2, emValorNumerico
Dato emParamFechaAnio,                                7,  2, emValorNumerico
Dato emParamFechaHoras,                              10,  2, emValorNumerico
Dato emParamFechaMinutos,                            13,  2, emValorNumerico
Constante emDatoCteIdentificadorHorarioMatutinoFecha, 15, "AM"

' Ring m'ss, duration hh:mm'ss and account. Numeric: only the digits of a field count.
Dato emParamRingMinutos,                             53,  1, emValorNumerico
Dato emParamRingSegundos,                            55,  2, emValorNumerico
Dato emParamDuracionHoras,                           58,  2, emValorNumerico
Dato emParamDuracionMinutos,                         61,  2, emValorNumerico
Dato emParamDuracionSegundos,                        64,  2, emValorNumerico
Dato emParamCodigoCuenta,                            67, 10, emValorNumerico

' Incoming: <I> and the minute mark of a duration, or the minute mark of a ring: a caller's name
' or a direct number (<D>) may take the place of <I>, but only incoming calls ring.
Constante emDatoCteIdentEntrante,                    27, "<I>"
Constante emDatoCteIdentEntranteAND,                 63, "'"
Constante emDatoCteIdentEntranteOR,                  54, "'"
Dato emParamTelefonoEntrante,                        27, 25, emValorNumerico
Dato emParamTroncalEntrante,                         24,  2, emValorNumerico
Dato emParamExtensionEntrante,                       18,  5, emValorNumerico

' Outgoing: both marks of a duration, or the ; that the second carrier's durations have.
Constante emDatoCteIdentSaliente,                    63, "'"
Constante emDatoCteIdentSalienteAND,                 60, ":"
Constante emDatoCteIdentSalienteOR,                  63, ";"
Dato emParamTelefonoSaliente,                        27, 25, emValorNumerico
Dato emParamExtensionSaliente,                       18,  5, emValorNumerico
Dato emParamTroncalSaliente,                         24,  2, emValorNumerico

' Internal: EXTnnnn and no trunk, or the voice mail group. Nothing behind the number is asked for,
' since blanks at the end of a line are often stripped on its way.
Constante emDatoCteIdentInterExtension,              27, "EXT"
Constante emDatoCteIdentInterExtensionAND,           24, "  "
Constante emDatoCteIdentInterExtensionOR,            27, "VM500"
Dato emParamExtension1InterExtension,                18,  5, emValorNumerico
Dato emParamExtension2InterExtension,                29,  5, emValorNumerico

' A line that has a date and is none of these (a cut one, a log-in), or a date that lost a
' character, gets a type whose parties have no columns: such a call is never valid.
Constante emDatoCteIdentInterTroncal,                 3, "/"
Constante emDatoCteIdentInterTroncalOR,               2, "/"

' TR: the extension transferred the call. The parties stand where they always do.
Constante emDatoCteIdentEntranteInicioTransferida,   78, "TR"
Dato emParamTelefonoEntranteInicioTransferida,       27, 25, emValorNumerico
Dato emParamTroncalEntranteInicioTransferida,        24,  2, emValorNumerico
Dato emParamExtensionEntranteInicioTransferida,      18,  5, emValorNumerico
Constante emDatoCteIdentSalienteInicioTransferida,   78, "TR"
Dato emParamTelefonoSalienteInicioTransferida,       27, 25, emValorNumerico
Dato emParamExtensionSalienteInicioTransferida,      18,  5, emValorNumerico
Dato emParamTroncalSalienteInicioTransferida,        24,  2, emValorNumerico

' The cable: a null modem between two DB9. Computer pin, switch pin.
cfg.PuertoActivo = emPuertoSerialDB9DB9
Wire 1, 4
Wire 6, 4
Wire 2, 3
Wire 3, 2
Wire 4, 1
Wire 4, 6
Wire 5, 5
Wire 7, 8
Wire 8, 7

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
