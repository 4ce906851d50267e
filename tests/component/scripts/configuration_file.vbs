' Saving and opening from a script.
Option Explicit
Dim fso, folder, path, cfg, other
Set fso = CreateObject("Scripting.FileSystemObject")
folder = fso.BuildPath(fso.GetSpecialFolder(2), "conmuta-" & fso.GetTempName)
fso.CreateFolder folder
path = fso.BuildPath(folder, "a" & Chr(&HF1) & "o.cfg")

Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.Marca = "ACME"
cfg.Modelo = "M" & Chr(&HF3) & "dulo"
cfg.Separador = vbCrLf
cfg.Comentarios = "Primera" & vbCrLf & "Segunda"
cfg.Caso = 5
DefineItem cfg, 2, 5, 2, 1
DefineItem cfg, 3, 8, 2, 3
DefineItem cfg, 4, 11, 4, 2
DefineItem cfg, 5, 0, 2, 1
DefineConstant cfg, 4, 1, "IN"
DefineConstant cfg, 7, 1, "OUT" & Chr(&HF1)
cfg.PuertoActivo = 4
cfg.PinIZQ = 25
cfg.PinDER = 1
cfg.PinesConectados = True
cfg.GuardarComo path
Equal "three items and two constants make 750 bytes", fso.GetFile(path).Size, 750
Equal "saving clears the change", cfg.Modificado, False

Set other = CreateObject("Conmuta.clsCfgConmut")
other.Abrir path
Equal "opening is no change", other.Modificado, False
Equal "the name comes back", other.NombreConmutador, "ACME, M" & Chr(&HF3) & "dulo"
Equal "the separator comes back", other.ListaSeparador, "13,10,0,0,0,0,0,0,0,0,"
Equal "the comments come back", other.Comentarios, "Primera" & vbCrLf & "Segunda"
Equal "the case comes back", other.Caso, 5
other.DATOActivo = 3
Equal "an item comes back", other.DATOPos & "," & other.DATOTam & "," & other.TipoDatoDATO, "8,2,3"
other.DATOActivo = 5
Equal "an item that was not there does not", other.HayDATO, False
other.CTEActivo = 7
Equal "a constant comes back", other.Constante, "OUT" & Chr(&HF1)
other.PuertoActivo = 4
other.PinIZQ = 25
other.PinDER = 1
Equal "a wire comes back", other.PinesConectados, True
other.GuardarComo fso.BuildPath(folder, "b.cfg")
Equal "saving again gives as many bytes", fso.GetFile(fso.BuildPath(folder, "b.cfg")).Size, 750

fso.DeleteFolder folder
Equal "nothing holds the files", fso.FolderExists(folder), False

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
