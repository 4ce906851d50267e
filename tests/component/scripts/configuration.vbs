' A configuration as VBScript sees it: values, names, slots.
Option Explicit
Dim cfg, i

Set cfg = CreateObject("Conmuta.clsCfgConmut")
Equal "a new one has no name", cfg.NombreConmutador, "Desconocido"
Equal "a new one has no brand", cfg.Marca, ""
Equal "a new one is not a configuration", cfg.HayConfig, False
Equal "a new one is not modified", cfg.Modificado, False
Equal "a new one has the version", cfg.Version, 3
Equal "a new one names the version", cfg.NombreVersion, "3.0"
Equal "a new one has the standard case", cfg.Caso, 1
Equal "a new one names the case", cfg.NombreCaso, "Estandar"
Equal "a new one lists no separator", cfg.ListaSeparador, "0,0,0,0,0,0,0,0,0,0,"
Equal "the separator has ten characters", cfg.TamMaxSeparador, 10
Equal "the comments have 250 characters", cfg.TamMaxComentarios, 250
Equal "a new one is one by its versioned name", CreateObject("Conmuta.clsCfgConmut.1").Version, 3

cfg.Marca = "ACME"
Equal "a brand is a change", cfg.Modificado, True
cfg.Modelo = "X1"
Equal "brand and model make the name", cfg.NombreConmutador, "ACME, X1"
Equal "brand and model make a configuration", cfg.HayConfig, True
Equal "names are found in any case", cfg.NOMBREconmutador, "ACME, X1"

cfg.Separador = vbCrLf
Equal "the separator is listed by its codes", cfg.ListaSeparador, "13,10,0,0,0,0,0,0,0,0,"
cfg.Separador = "A" & Chr(0) & "B"
Equal "the separator drops its NULs", cfg.Separador, "AB"
cfg.Marca = String(60, "x")
Equal "the brand is cut to 50 characters", cfg.Marca, String(50, "x")
cfg.Comentarios = String(300, "y")
Equal "the comments are cut to 250 characters", Len(cfg.Comentarios), 250
cfg.Comentarios = "A" & Chr(&HF1) & "o " & Chr(&HC9)
Equal "texts keep their accents", cfg.Comentarios, "A" & Chr(&HF1) & "o " & Chr(&HC9)
cfg.Comentarios = 5
Equal "a number becomes text", cfg.Comentarios, "5"

cfg.IDCfg = 123456
Equal "the identifier is the host's", cfg.IDCfg, 123456

cfg.Caso = 9
Equal "any case is kept", cfg.Caso, 9
Equal "an unknown case has no name", cfg.NombreCaso, ""
cfg.Caso = "2"
Equal "the case may come as text", cfg.NombreCaso, "Caso de Samsung Nx-820"
i = 5
cfg.Caso = i
Equal "the case may come in a variable", cfg.Caso, 5
Equal "the variable of a case stays", i, 5
Equal "other cases are named without choosing them", cfg.ObtNombreCaso(3), "Caso del Nortel Meridian"
Equal "naming leaves the case", cfg.Caso, 5
Equal "a case that is none has no name", cfg.ObtNombreCaso(9), ""

cfg.Iniciar
Equal "a reset one has no name", cfg.NombreConmutador, "Desconocido"
Equal "a reset one is not modified", cfg.Modificado, False
Equal "a reset one keeps its identifier", cfg.IDCfg, 123456

cfg.DATOActivo = 2
cfg.DATOPos = 5
Equal "an item without a size is not there", cfg.HayDATO, False
Equal "an item without a size has no type", cfg.TipoDatoDATO, 0
Equal "an item without a size has its position", cfg.DATOPos, 5
Equal "an item is a change", cfg.Modificado, True
cfg.DATOTam = 2
Equal "an item with position and size is there", cfg.HayDATO, True
Equal "an item is numeric at first", cfg.TipoDatoDATO, 1
cfg.TipoDatoDATO = 3
cfg.DATOPos = 6
Equal "writing the position makes an item numeric again", cfg.TipoDatoDATO, 1
cfg.TipoDatoDATO = 0
Equal "type 0 releases an item", cfg.HayDATO, False
cfg.DATOActivo = 54
cfg.DATOPos = 5
Equal "what is no kind keeps nothing", cfg.DATOPos, 0

cfg.CTEActivo = 4
cfg.Constante = "IN"
cfg.CTEPos = 1
Equal "a constant with position and text is there", cfg.HayCTE, True
Equal "a constant knows its size", cfg.CTETam, 2
Equal "a constant has its type", cfg.TipoDatoCTE, 2
cfg.Constante = String(25, "z")
Equal "a constant is cut to 20 characters", cfg.Constante, String(20, "z")
cfg.Constante = ""
Equal "an empty constant is released", cfg.HayCTE, False

Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.DATOActivo = 2
cfg.DATOPos = 5
cfg.DATOTam = 2
cfg.Iniciar
cfg.DATOActivo = 2
Equal "a reset item is not there", cfg.HayDATO, False
Equal "a reset item keeps its position", cfg.DATOPos, 5
Equal "a reset item keeps its size", cfg.DATOTam, 2
cfg.DATOPos = 5
Equal "the same position makes it valid again", cfg.HayDATO, True
Equal "the same position is no change", cfg.Modificado, False
