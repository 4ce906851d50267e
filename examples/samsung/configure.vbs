' Builds the configuration of a Samsung NX-820 whose transfers are joined by trunk, and saves it.
'
'     cscript //nologo configure.vbs CONFIGURATION.cfg
'
'          1         2         3         4         5         6         7         8         9         0
' 1234567890123456789012345678901234567890123456789012345678901234567890123456789012345678901234567890123456789
' 201           701  01/02 09:10:13 00:00:28 IT                    4411         5554264100       SAMPLE TELECOM
' 205           701  01/02 09:10:41 00:02:02 T                                  5554264100       SAMPLE TELECOM
' 205           702  01/02 09:04:30 00:03:05 O  4264100
Option Explicit

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "Uso: cscript //nologo configure.vbs CONFIGURACION.cfg"
    WScript.Quit 2
End If

' The type library's values, which a script has to declare for itself.
Const emCasoSamsungNX_820 = 2
Const emValorNumerico = 1
Const emParamFechaDia = 2
Const emParamFechaMes = 3
Const emParamFechaHoras = 5
Const emParamFechaMinutos = 6
Const emParamFechaSegundos = 7
Const emParamDuracionHoras = 11
Const emParamDuracionMinutos = 12
Const emParamDuracionSegundos = 13
Const emParamCodigoCuenta = 17
Const emParamTelefonoEntrante = 18
Const emParamTelefonoSaliente = 19
Const emParamTelefonoEntranteInicioTransferida = 22
Const emParamTelefonoEntranteFinTransferida = 23
Const emParamTelefonoSalienteInicioTransferida = 24
Const emParamTroncalEntrante = 30
Const emParamExtensionEntrante = 31
Const emParamTroncalSaliente = 32
Const emParamExtensionSaliente = 33
Const emParamTroncalEntranteInicioTransferida = 38
Const emParamExtensionEntranteInicioTransferida = 39
Const emParamTroncalEntranteFinTransferida = 40
Const emParamExtensionEntranteFinTransferida = 41
Const emParamTroncalSalienteInicioTransferida = 42
Const emParamExtensionSalienteInicioTransferida = 43
Const emParamTroncalSalienteFinTransferida = 44
Const emParamExtensionSalienteFinTransferida = 45
Const emDatoCteIdentEntrante = 4
Const emDatoCteIdentEntranteOR = 6
Const emDatoCteIdentSaliente = 7
Const emDatoCteIdentInterTroncal = 13
Const emDatoCteIdentInterTroncalOR = 15
Const emDatoCteIdentEntranteInicioTransferida = 16
Const emDatoCteIdentEntranteFinTransferida = 17
Const emDatoCteIdentSalienteInicioTransferida = 18
Const emPuertoSerialDB9DB25 = 2

Dim cfg
Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.Marca = "Samsung"
cfg.Modelo = "NX-820"
cfg.Comentarios = "Transferencias IT, OT y T por troncal"
cfg.Separador = vbCrLf
cfg.Caso = emCasoSamsungNX_820

' What                                            position, size, type
' Date mm/dd, which has no year: the current one is taken; start, duration and account.
Dato emParamFechaMes,                                20,  2, emValorNumerico
Dato emParamFechaDia,                                23,  2, emValorNumerico
Dato emParamFechaHoras,                              26,  2, emValorNumerico
Dato emParamFechaMinutos,                            29,  2, emValorNumerico
Dato emParamFechaSegundos,                           32,  2, emValorNumerico
Dato emParamDuracionHoras,                           35,  2, emValorNumerico
Dato emParamDuracionMinutos,                         38,  2, emValorNumerico
Dato emParamDuracionSegundos,                        41,  2, emValorNumerico
Dato emParamCodigoCuenta,                            66, 12, emValorNumerico

' Incoming: I or IT, or the T that ends a transfer. Its blanks keep TT out, and an IT that slipped
' one column to the left.
Constante emDatoCteIdentEntrante,                    44, "I"
Constante emDatoCteIdentEntranteOR,                  43, " T "
Dato emParamTelefonoEntrante,                        79, 16, emValorNumerico
Dato emParamTroncalEntrante,                         15,  4, emValorNumerico
Dato emParamExtensionEntrante,                        1,  4, emValorNumerico

' Outgoing: O or OT. Without a dialled number such a call is discarded.
Constante emDatoCteIdentSaliente,                    44, "O"
Dato emParamTelefonoSaliente,                        47, 18, emValorNumerico
Dato emParamExtensionSaliente,                        1,  4, emValorNumerico
Dato emParamTroncalSaliente,                         15,  4, emValorNumerico

' IT parks the call on its trunk; T on that trunk takes it up.
Constante emDatoCteIdentEntranteInicioTransferida,   44, "IT"
Dato emParamTelefonoEntranteInicioTransferida,       79, 16, emValorNumerico
Dato emParamTroncalEntranteInicioTransferida,        15,  4, emValorNumerico
Dato emParamExtensionEntranteInicioTransferida,       1,  4, emValorNumerico
Constante emDatoCteIdentEntranteFinTransferida,      43, " T "
Dato emParamTelefonoEntranteFinTransferida,          79, 16, emValorNumerico
Dato emParamTroncalEntranteFinTransferida,           15,  4, emValorNumerico
Dato emParamExtensionEntranteFinTransferida,          1,  4, emValorNumerico

' OT parks an outgoing call; a T that takes it up becomes outgoing and is read with the last two.
Constante emDatoCteIdentSalienteInicioTransferida,   44, "OT"
Dato emParamTelefonoSalienteInicioTransferida,       47, 18, emValorNumerico
Dato emParamExtensionSalienteInicioTransferida,       1,  4, emValorNumerico
Dato emParamTroncalSalienteInicioTransferida,        15,  4, emValorNumerico
Dato emParamExtensionSalienteFinTransferida,          1,  4, emValorNumerico
Dato emParamTroncalSalienteFinTransferida,           15,  4, emValorNumerico

' A line that has a date and is none of these (a cut one, an abandoned call, TT), or a date that
' lost a character, gets a type whose parties have no columns: such a call is never valid.
Constante emDatoCteIdentInterTroncal,                22, "/"
Constante emDatoCteIdentInterTroncalOR,              21, "/"

' The cable: a DB9 to the printer-type DB25 of the switch. Computer pin, switch pin.
cfg.PuertoActivo = emPuertoSerialDB9DB25
Wire 2, 2
Wire 3, 3
Wire 5, 7

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
