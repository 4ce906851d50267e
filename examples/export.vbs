' Writes a configuration file as a text exchange file.
'
'     cscript //nologo export.vbs CONFIGURATION.cfg EXCHANGE.txt
Option Explicit

If WScript.Arguments.Count <> 2 Then
    WScript.Echo "Uso: cscript //nologo export.vbs CONFIGURACION.cfg INTERCAMBIO.txt"
    WScript.Quit 2
End If

Dim switch
Set switch = CreateObject("Conmuta.clsCfgConmut")
switch.Abrir WScript.Arguments(0)
switch.Exportar WScript.Arguments(1)
WScript.Echo switch.NombreConmutador
