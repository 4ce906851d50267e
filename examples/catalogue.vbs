' Makes a catalogue of the example switches in a temporary folder and opens the manager on it.
'
'     cscript //nologo catalogue.vbs
Option Explicit

Dim files, examples, folder, name, number, catalogue
Set files = CreateObject("Scripting.FileSystemObject")
examples = files.GetParentFolderName(WScript.ScriptFullName)
folder = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName) ' 2: temporary files
files.CreateFolder folder

number = 0
For Each name In Array("meridian", "norstar", "panasonic-kx", "samsung", "two-dates")
    number = number + 1
    files.CopyFile examples & "\" & name & "\" & name & ".cfg", folder & "\conmutador" & number & ".cfg"
Next

Set catalogue = CreateObject("Conmuta.clsConmutadores")
catalogue.Directorio = folder
catalogue.Prefijo = "conmutador"
catalogue.Extension = "cfg"
catalogue.ArchivoInstalado = folder & "\predeterminado.dat"
catalogue.Editar

If catalogue.Instalado Then
    WScript.Echo "El conmutador predeterminado cambio."
Else
    WScript.Echo "El conmutador predeterminado no cambio."
End If
files.DeleteFolder folder
