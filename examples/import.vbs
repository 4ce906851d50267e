' Turns a text exchange file into a configuration file.
'
'     cscript //nologo import.vbs EXCHANGE.txt CONFIGURATION.cfg
'
' An exchange file can be read, compared and edited by hand. Only the standard case can be imported.
Option Explicit

If WScript.Arguments.Count <> 2 Then
    WScript.Echo "Uso: cscript //nologo import.vbs INTERCAMBIO.txt CONFIGURACION.cfg"
    WScript.Quit 2
End If

Dim switch
Set switch = CreateObject("Conmuta.clsCfgConmut")
switch.Importar WScript.Arguments(0)
switch.GuardarComo WScript.Arguments(1)
WScript.Echo switch.NombreConmutador
