' Makes a catalogue of the configurations in a folder, and opens the manager on it. The catalogue is a
' temporary one: nothing happens to the folder.
'
'     cscript //nologo catalogue.vbs FOLDER
Option Explicit

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "Uso: cscript //nologo catalogue.vbs CARPETA"
    WScript.Quit 2
End If

Dim files, folder, file, number, catalogue
Set files = CreateObject("Scripting.FileSystemObject")
folder = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName) ' 2: temporary files
files.CreateFolder folder

number = 0
For Each file In files.GetFolder(WScript.Arguments(0)).Files
    If LCase(files.GetExtensionName(file.Name)) = "cfg" Then
        number = number + 1
        files.CopyFile file.Path, folder & "\conmutador" & number & ".cfg"
    End If
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
