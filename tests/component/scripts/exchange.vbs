' The text exchange file from a script: exported, read, edited by hand, imported.
Option Explicit
Dim fso, folder, path, cfg, other, exported
Set fso = CreateObject("Scripting.FileSystemObject")
folder = fso.BuildPath(fso.GetSpecialFolder(2), "conmuta-" & fso.GetTempName)
fso.CreateFolder folder
path = fso.BuildPath(folder, "a" & Chr(&HF1) & "o.txt")

Set cfg = CreateObject("Conmuta.clsCfgConmut")
cfg.Marca = "ACME"
cfg.Modelo = "M" & Chr(&HF3) & "dulo"
cfg.Separador = vbCrLf
cfg.Comentarios = "Primera" & vbCrLf & "Segunda"
cfg.DATOActivo = 33
cfg.DATOPos = 40
cfg.DATOTam = 4
cfg.TipoDatoDATO = 3
cfg.CTEActivo = 4
cfg.Constante = "IN"
cfg.CTEPos = 9
Wire cfg, 1, 2, 3
Wire cfg, 3, 25, 9
cfg.Exportar path
Equal "exporting leaves the change", cfg.Modificado, True

exported = ReadAll(path)
Equal "the name is in the file", LineOf("Marca"), "ACME"
Equal "accents are in the file", LineOf("Modelo"), "M" & Chr(&HF3) & "dulo"
Equal "the separator is a list of codes", LineOf("Separador"), "13,10,0,0,0,0,0,0,0,0,"
Equal "a comment is one line", LineOf("Comentarios"), "Primera  Segunda"
Equal "wires are masks", LineOf("DB9DB9"), "0,4,0,0,0,0,0,0,0,"
Equal "an item is four numbers", LineOf("Dato1"), "33,3,40,4,"
Equal "a constant is four numbers and its codes", LineOf("Constante1"), _
    "4,2,9,2,$(73,78,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,)"

Set other = CreateObject("Conmuta.clsCfgConmut")
other.Importar path
Equal "importing is no change", other.Modificado, False
Equal "the name comes over", other.NombreConmutador, cfg.NombreConmutador
Equal "the separator comes over", other.Separador, vbCrLf
Equal "the comment comes over without its line break", other.Comentarios, "Primera  Segunda"
other.DATOActivo = 33
Equal "the item comes over as a number", other.DATOPos & "," & other.DATOTam & "," & _
    other.TipoDatoDATO, "40,4,1"
other.CTEActivo = 4
Equal "the constant comes over", other.Constante & "," & other.CTEPos & "," & other.CTETam, "IN,9,2"
Equal "the wires come over", Wired(other, 1, 2, 3) And Wired(other, 3, 25, 9), True
Equal "and no others", Wired(other, 1, 3, 2), False

Import Replace(exported, "Marca=ACME", "marca = ""Otra"" ")
Equal "a name written by hand is taken", other.Marca, "Otra"
Import Replace(exported, "DB9DB9=0,4,", "DB9DB9=1,x,")
Equal "bad wiring counts as none", Wired(other, 1, 1, 1) And Not Wired(other, 1, 2, 3), True
Import Replace(exported, "Dato1=33,3,40,4,", "Dato1=1,1,1,1," & vbCrLf & "Dato2=2,1,5,2,")
other.DATOActivo = 2
Equal "a bad item is passed over", other.HayDATO, True
Import Replace(exported, "Dato1=33,3,40,4,", "Dato2=3,1,5,2,")
other.DATOActivo = 3
Equal "nothing is read behind a gap", other.HayDATO, False
other.DATOActivo = 2
Equal "what the file does not name stays", other.HayDATO, True

Refuses "a wrong version", "Version=3", "Version=4", "La versi" & Chr(&HF3) & "n no es correcta."
Refuses "a missing version", "Version=", "Versio=", "La versi" & Chr(&HF3) & "n no es correcta."
Refuses "a blank brand", "Marca=ACME", "Marca=  ", _
    "No se encontro una marca para la configuraci" & Chr(&HF3) & "n del conmutador."
Refuses "a missing model", "Modelo=", "Model=", _
    "No se encontro un modelo para la configuraci" & Chr(&HF3) & "n del conmutador."
Refuses "a special case", "Caso=1", "Caso=2", _
    "El caso de la configuraci" & Chr(&HF3) & "n no esta soportado."
Refuses "a separator of nothing", "Separador=13,10,", "Separador=0,0,", _
    "No hay un separador de llamadas definido."
Refuses "a mask beyond 32 bits", "DB9DB9=0,", "DB9DB9=2147483648,", _
    "No hay un separador de llamadas definido."

other.Marca = "Vieja"
Refuses "a model behind a good brand", "Modelo=", "Model=", _
    "No se encontro un modelo para la configuraci" & Chr(&HF3) & "n del conmutador."
Equal "what was checked before the failure is taken", other.Marca, "ACME"
Equal "a failed import leaves the change", other.Modificado, True

cfg.Iniciar
cfg.Exportar path
exported = ReadAll(path)
Equal "exporting again leaves nothing behind", InStr(exported, "[Datos]") + _
    InStr(exported, "[Constantes]") + InStr(exported, "ACME"), 0

cfg.Caso = 4
cfg.Exportar path
exported = ReadAll(path)
Equal "a special case is exported", LineOf("Caso"), "4"

On Error Resume Next
cfg.Exportar "  "
FailsWith "exporting needs a name", &H800405DD, "clsConfigConmut.Exportar", _
    "No es posible encontrar el archivo deseado."
cfg.Exportar fso.BuildPath(fso.BuildPath(folder, "missing"), "a.txt")
FailsWith "exporting needs a folder", &H800405DF, "clsConfigConmut.Exportar", _
    "Ocurrio un error en los datos al intentar exportar la configuraci" & Chr(&HF3) & "n."
other.Importar fso.BuildPath(folder, "missing.txt")
FailsWith "importing needs a file", &H800405E0, "clsConfigConmut.Importar", _
    ImportError("La versi" & Chr(&HF3) & "n no es correcta.", fso.BuildPath(folder, "missing.txt"))
On Error Goto 0

fso.DeleteFolder folder
Equal "nothing holds the files", fso.FolderExists(folder), False

' The exported file, edited, is refused for this reason.
Sub Refuses(name, found, edited, detail)
    WriteAll path, Replace(exported, found, edited)
    On Error Resume Next
    other.Importar path
    FailsWith name & " is refused", &H800405E0, "clsConfigConmut.Importar", _
        ImportError(detail, path)
End Sub

Function ImportError(detail, file)
    ImportError = "Error de importaci" & Chr(&HF3) & "n en la configuraci" & Chr(&HF3) & "n." & _
        vbCrLf & detail & vbCrLf & file
End Function

Sub Import(text)
    WriteAll path, text
    other.Importar path
End Sub

' What stands behind a key of the exported file.
Function LineOf(key)
    Dim line
    For Each line In Split(exported, vbCrLf)
        If Left(line, Len(key) + 1) = key & "=" Then LineOf = Mid(line, Len(key) + 2)
    Next
End Function

Function ReadAll(file)
    Dim stream
    Set stream = fso.OpenTextFile(file)
    ReadAll = stream.ReadAll
    stream.Close
End Function

Sub WriteAll(file, text)
    Dim stream
    Set stream = fso.CreateTextFile(file, True)
    stream.Write text
    stream.Close
End Sub

Sub Wire(config, pair, leftPin, rightPin)
    config.PuertoActivo = pair
    config.PinIZQ = leftPin
    config.PinDER = rightPin
    config.PinesConectados = True
End Sub

Function Wired(config, pair, leftPin, rightPin)
    config.PuertoActivo = pair
    config.PinIZQ = leftPin
    config.PinDER = rightPin
    Wired = config.PinesConectados
End Function
