# A host in Windows PowerShell: powershell -File anfitrion.ps1 CONFIGURATION.cfg CAPTURE.txt
# Not run here: the language does not run where this component is tested.
param([string]$configuracion, [string]$captura)

$cfg = New-Object -ComObject Conmuta.clsCfgConmut
Register-ObjectEvent -InputObject $cfg -EventName Cambios -Action { Write-Host 'La configuracion cambio.' } | Out-Null
Register-ObjectEvent -InputObject $cfg -EventName ConfiguracionCargada -Action { Write-Host 'Cargada.' } | Out-Null
try { $cfg.Abrir((Resolve-Path $configuracion).Path) }
catch {
    $e = $_.Exception.GetBaseException()
    '{0:X8} {1}: {2}' -f $e.HResult, $e.Source, $e.Message
    exit 1
}
$traductor = New-Object -ComObject Conmuta.clsTradEST
$traductor.Conmutador = $cfg
$llamada = $traductor.InfoLlamada
$script:llamadas = 0; $script:errores = 0; $script:otras = 0

function Traducir([string]$linea) {
    try { $traductor.Llamada = $linea }
    catch { $script:errores++; return } # half a record is left: its EsValido says nothing
    if (-not $llamada.EsValido) { $script:otras++; return }
    $script:llamadas++
    $duracion = $llamada.Duracion
    if ($llamada.Anio(2) -ne 0 -or $llamada.Mes(2) -ne 0 -or $llamada.Dia(2) -ne 0 -or $duracion -lt 0) { $duracion = '?' }
    '{0}/{1}/{2} {3}:{4:00};{5};{6};{7};{8}' -f $llamada.Dia(1), $llamada.Mes(1), $llamada.Anio(1),
        $llamada.Horas(1), $llamada.Minutos(1), $duracion, $llamada.Emisor, $llamada.Receptor, $llamada.Telefono
}

Get-Content $captura -Encoding Default | ForEach-Object { Traducir ($_ -replace '[\x00-\x1F\x7F]', '') }
if ($cfg.Caso -eq 4) { Traducir '--------' }
1..100 | ForEach-Object { $traductor.QuitaLlamadaLista($_) }
"$llamadas llamadas, $errores errores, $otras sin llamada"

# By reference in the type library; a late-bound host just assigns. What was stored is read back.
$cfg.Caso = 5
$llamada.TipoLlamada = 7
"$($cfg.Caso) $($llamada.TipoLlamada)" # 5 1: 7 is no type
