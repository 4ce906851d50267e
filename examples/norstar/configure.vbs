' Builds the configuration of a Nortel Norstar, which prints a block of lines per call, and saves it.
'
'     cscript //nologo configure.vbs CONFIGURATION.cfg
'
'          1         2         3         4         5         6         7         8
' 12345678901234567890123456789012345678901234567890123456789012345678901234567890
' -------- 04/11/97 08:39:43 LINE = 0003 STN = 7425
' 00:00:00   OUTGOING CALL
'            DIGITS DIALED    5551212
' 00:12:59   CALL RELEASED
Option Explicit

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "Uso: cscript //nologo configure.vbs CONFIGURACION.cfg"
    WScript.Quit 2
End If

' The type library's values, which a script has to declare for itself.
Const emCasoNortelNorstar0x32SMDR6 = 4
Const emValorNumerico = 1
Const emParamFechaDia = 2
Const emParamFechaMes = 3
Const emParamFechaAnio = 4
Const emParamFechaHoras = 5
Const emParamFechaMinutos = 6
Const emParamFechaSegundos = 7
Const emParamDuracionHoras = 11
Const emParamDuracionMinutos = 12
Const emParamDuracionSegundos = 13
Const emParamTroncalSaliente = 32
Const emParamExtensionSaliente = 33

Dim cfg
Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.Marca = "Nortel"
cfg.Modelo = "Norstar"
cfg.Comentarios = "SMDR6, un bloque de lineas por llamada"
cfg.Separador = vbCrLf
cfg.Caso = emCasoNortelNorstar0x32SMDR6

' What                                            position, size, type
' Date mm/dd/yy and time of the separator line.
Dato emParamFechaMes,                                10,  2, emValorNumerico
Dato emParamFechaDia,                                13,  2, emValorNumerico
Dato emParamFechaAnio,                               16,  2, emValorNumerico
Dato emParamFechaHoras,                              19,  2, emValorNumerico
Dato emParamFechaMinutos,                            22,  2, emValorNumerico
Dato emParamFechaSegundos,                           25,  2, emValorNumerico

' The time at the beginning of an event line; that of the last event is the duration.
Dato emParamDuracionHoras,                            1,  2, emValorNumerico
Dato emParamDuracionMinutos,                          4,  2, emValorNumerico
Dato emParamDuracionSegundos,                         7,  2, emValorNumerico

' LINE and STN of the separator line, read as the parties of an outgoing call; INCOMING CALL
' exchanges them. All else is told by the words of the event lines.
Dato emParamExtensionSaliente,                       46,  7, emValorNumerico
Dato emParamTroncalSaliente,                         35,  4, emValorNumerico

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
