// A client in JScript: what client.cpp does, late bound. Events need a host that connects them.
var cfg = new ActiveXObject("Conmuta.clsCfgConmut");
cfg.Abrir(WScript.Arguments(0));
var translator = new ActiveXObject("Conmuta.clsTradEST");
translator.Conmutador = cfg;
var record = translator.InfoLlamada;

var capture = new ActiveXObject("Scripting.FileSystemObject").OpenTextFile(WScript.Arguments(1));
var number = 0;
while (!capture.AtEndOfStream) {
    number++;
    translate(capture.ReadLine().replace(/[\x00-\x1F\x7F]/g, ""));
}
if (cfg.Caso === 4) translate("--------");
for (var place = 1; place <= 100; place++) translator.QuitaLlamadaLista(place);

WScript.Echo("== propiedades");
translator.Llamada = "01/14/19 08:58AM 1201  01 5550142                        00:04'31";
WScript.Echo("Marca=" + cfg.Marca);
WScript.Echo("Version=" + cfg.Version);
WScript.Echo("Modificado=" + yesNo(cfg.Modificado));
WScript.Echo("TamMaxSeparador=" + cfg.TamMaxSeparador);
var id = 70000;
cfg.IDCfg = id;
WScript.Echo("IDCfg=" + cfg.IDCfg);
var kind = 5;
cfg.DATOActivo = kind;
WScript.Echo("DATOPos=" + cfg.DATOPos);
WScript.Echo("Conmutador.Modelo=" + translator.Conmutador.Modelo);
WScript.Echo("Llamada=" + translator.Llamada);
WScript.Echo("Anio=" + record.Anio(1));
WScript.Echo("Fecha=" + days(record.Fecha));
WScript.Echo("Hora=" + secondsOfDay(record.Hora));
WScript.Echo("EsValido=" + yesNo(record.EsValido));
translator.AltaLlamadaLista();
WScript.Echo("BuscaLlamadaTroncalLista=" + translator.BuscaLlamadaTroncalLista("01"));
var caso = 5;
cfg.Caso = caso;
WScript.Echo("Caso=" + cfg.Caso);
var tipo = 7;
record.TipoLlamada = tipo;
WScript.Echo("TipoLlamada=" + record.TipoLlamada);
cfg.Marca = "ACME";

WScript.Echo("== error");
try {
    cfg.Exportar("  ");
} catch (e) {
    // JScript does not tell the source.
    WScript.Echo((e.number >>> 0).toString(16).toUpperCase() + " " + e.description);
}

function translate(line) {
    try {
        translator.Llamada = line;
    } catch (e) {
        WScript.Echo("! linea " + number + ": error " + (e.number & 0xFFFF));
        return;
    }
    if (record.EsValido) WScript.Echo(callLine(record));
}

function callLine(r) {
    var duration = r.Duracion;
    if (r.Anio(2) || r.Mes(2) || r.Dia(2) || duration < 0) duration = "?";
    return [digits(r.Dia(1)) + "/" + digits(r.Mes(1)) + "/" + r.Anio(1),
        digits(r.Horas(1)) + ":" + digits(r.Minutos(1)) + ":" + digits(r.Segundos(1)), duration, r.Ring,
        r.TipoLlamada, r.Atributos, r.Emisor, r.Receptor, r.Telefono, r.ExtensionTransferida,
        r.CodigoCuenta].join(";");
}

function digits(number) {
    return (number < 10 ? "0" : "") + number;
}

function yesNo(value) {
    return value ? "si" : "no";
}

// Dates are days since 30 December 1899, which a script gets as moments of local time.
function days(date) {
    var d = new Date(date);
    return Math.round((Date.UTC(d.getFullYear(), d.getMonth(), d.getDate()) - Date.UTC(1899, 11, 30)) / 86400000);
}

function secondsOfDay(date) {
    var d = new Date(date);
    return d.getHours() * 3600 + d.getMinutes() * 60 + d.getSeconds();
}
