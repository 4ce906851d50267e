' Builds the configuration of a made-up switch through the component's properties, and saves it. Real
' ones stand in ..\switches as data; this shows how a program writes one.
'
'     cscript //nologo configure.vbs CONFIGURATION.cfg
'
'          1         2         3         4
' 1234567890123456789012345678901234567890123456
' 14/03 09:12 00:03:15 S 201 0701 5550142
' 14/03 09:14 00:07:35 E 205 0702 5550177
Option Explicit

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "Uso: cscript //nologo configure.vbs CONFIGURACION.cfg"
    WScript.Quit 2
End If

' The type library's values, which a script has to declare for itself.
Const emCasoEstandar = 1
Const emValorNumerico = 1
Const emValorCadena = 3
Const emParamFechaDia = 2
Const emParamFechaMes = 3
Const emParamFechaHoras = 5
Const emParamFechaMinutos = 6
Const emParamDuracionHoras = 11
Const emParamDuracionMinutos = 12
Const emParamDuracionSegundos = 13
Const emParamTelefonoEntrante = 18
Const emParamTelefonoSaliente = 19
Const emParamTroncalEntrante = 30
Const emParamExtensionEntrante = 31
Const emParamTroncalSaliente = 32
Const emParamExtensionSaliente = 33
Const emDatoCteIdentEntrante = 4
Const emDatoCteIdentSaliente = 7
Const emPuertoSerialDB9DB9 = 1

Dim cfg
Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.Marca = "Ejemplo"
cfg.Modelo = "Columnas"
cfg.Comentarios = "Hecho por configure.vbs"
cfg.Separador = vbCrLf
cfg.Caso = emCasoEstandar

' What, position, size, type
Dato emParamFechaDia, 1, 2, emValorNumerico
Dato emParamFechaMes, 4, 2, emValorNumerico
Dato emParamFechaHoras, 7, 2, emValorNumerico
Dato emParamFechaMinutos, 10, 2, emValorNumerico
Dato emParamDuracionHoras, 13, 2, emValorNumerico
Dato emParamDuracionMinutos, 16, 2, emValorNumerico
Dato emParamDuracionSegundos, 19, 2, emValorNumerico

' The letter tells the kind of call; each kind has items of its own.
Constante emDatoCteIdentEntrante, 22, "E"
Dato emParamExtensionEntrante, 24, 3, emValorNumerico
Dato emParamTroncalEntrante, 28, 4, emValorCadena ' text: the 0 in front stays
Dato emParamTelefonoEntrante, 33, 14, emValorNumerico
Constante emDatoCteIdentSaliente, 22, "S"
Dato emParamExtensionSaliente, 24, 3, emValorNumerico
Dato emParamTroncalSaliente, 28, 4, emValorCadena
Dato emParamTelefonoSaliente, 33, 14, emValorNumerico

' The cable between two DB9: pin of the computer, pin of the switch.
cfg.PuertoActivo = emPuertoSerialDB9DB9
Wire 2, 3
Wire 3, 2
Wire 5, 5

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
