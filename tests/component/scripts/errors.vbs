' Failures as VBScript sees them: numbers, sources, descriptions.
Option Explicit
Dim cfg, call_, trad, fso, missing
Set cfg = CreateObject("Conmuta.clsCfgConmut")
Set call_ = CreateObject("Conmuta.clsLlamadaTRD")
Set trad = CreateObject("Conmuta.clsTradEST")
Set fso = CreateObject("Scripting.FileSystemObject")
missing = fso.BuildPath(fso.GetSpecialFolder(2), "no existe " & Chr(&HF1) & ".cfg")

cfg.DATOActivo = 2
cfg.DATOPos = 5

On Error Resume Next

cfg.DATOPos = 300
Fails "a position beyond a byte overflows", 6
cfg.DATOPos = -1
Fails "a negative position overflows", 6
cfg.DATOPos = "abc"
Fails "a word is no position", 13
Equal "a failed write changes nothing", cfg.DATOPos, 5
call_.TipoLlamada = "abc"
Fails "a word is no type", 13
cfg.PinIZQ = 40000
Fails "a pin beyond 16 bits overflows", 6

call_.Horas(3) = 10
FailsWith "a ring of ten hours overflows", 6, "Conmuta", "Desbordamiento"
call_.Anio(1) = 10000
Equal "a year may be any number", Err.Number, 0
call_.Mes(1) = 1
call_.Dia(1) = 1
missing = missing & call_.Fecha
FailsWith "a date beyond the calendar is an invalid argument", 5, "Conmuta", _
    "Argumento o llamada a procedimiento no v" & Chr(&HE1) & "lida"

trad.TraduceEstandar
FailsWith "a translation needs a configuration", 91, "Conmuta", _
    "Variable de objeto o de bloque With no establecida"
trad.TraduceMeridian01
Fails "so does that of the Meridian", 91
trad.TraduceNortelNorstar0x32SMDR6
Fails "so does that of the Norstar", 91
call_.CopiaLlamada Nothing
Fails "nothing cannot be copied", 91
call_.CopiaLlamada cfg
Fails "a configuration cannot be copied as a call", 13
call_.CopiaLlamada 5
Fails "a number cannot be copied as a call", 13
Set trad.Conmutador = call_
Fails "a call is no configuration", 13
Set trad.Conmutador = fso
Fails "another's object is no configuration", 13

cfg.Abrir missing
FailsWith "a missing file names itself", &H800405DD, "clsConfigConmut.Abrir", _
    "No es posible encontrar el archivo deseado." & vbCrLf & " Archivo :" & missing
cfg.Abrir ""
FailsWith "opening needs a name", &H80040000, "clsConfigConmut.Abrir", _
    "Error desconocido." & vbCrLf & " Archivo :"
cfg.Abrir "  "
FailsWith "blanks are no name", &H80040000, "clsConfigConmut.Abrir", _
    "Error desconocido." & vbCrLf & " Archivo :  "
cfg.GuardarComo ""
FailsWith "saving needs a name", &H800405DD, "clsConfigConmut.Exportar", _
    "No es posible encontrar el archivo deseado."
cfg.GuardarComo missing
FailsWith "saving needs brand, model and separator", &H800405DE, "clsConfigConmut.GuardarComo", _
    "Los datos de la configuraci" & Chr(&HF3) & "n no estan completos." & vbCrLf & _
    "Verifica la marca y modelo, el separador de llamadas, el caso establecido."
cfg.Marca = "ACME": cfg.Modelo = "X1": cfg.Separador = ";"
cfg.GuardarComo fso.BuildPath(missing, "a.cfg")
FailsWith "a file that cannot be written says so", &H800405DC, "clsConfigConmut.GuardarComo", _
    "No es posible acceder al archivo o el nombre del archivo no es v" & Chr(&HE1) & "lido."

cfg.Inexistente
Fails "an unknown member is told", 438
cfg.Modificado = True
Report "a read-only property is not written", Err.Number <> 0, "no error"
Err.Clear
cfg.ObtNombreCaso 1, 2
Report "too many arguments are told", Err.Number <> 0, "no error"
Err.Clear
cfg.Abrir
Report "too few arguments are told", Err.Number <> 0, "no error"
Err.Clear
Equal "after all that the object is well", cfg.NombreConmutador, "ACME, X1"
