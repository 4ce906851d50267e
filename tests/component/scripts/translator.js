// A translator and a call record as JScript sees them.
var trad = new ActiveXObject("Conmuta.clsTradEST");
var cfg = new ActiveXObject("Conmuta.clsCfgConmut");
var record = trad.InfoLlamada;

function defineItem(kind, pos, size, type) {
    cfg.DATOActivo = kind;
    cfg.DATOPos = pos;
    cfg.DATOTam = size;
    cfg.TipoDatoDATO = type;
}
cfg.Marca = "ACME";
cfg.Modelo = "X1";
defineItem(5, 1, 2, 1);
defineItem(33, 10, 4, 3);
defineItem(32, 15, 4, 3);
defineItem(19, 20, 10, 1);

equal("a new one has no configuration", trad.Conmutador, null);
trad.Conmutador = cfg;
equal("the same configuration comes back", trad.Conmutador === cfg || trad.Conmutador == cfg, true);
trad.Conmutador = null;
equal("null is nothing", trad.Conmutador, null);
trad.Conmutador = cfg;

trad.Llamada = "\r\n03:15:20 0205 T001 5551234567";
equal("leading line ends are dropped", trad.Llamada, "03:15:20 0205 T001 5551234567");
equal("a line is translated", record.EsValido, true);
equal("its caller", record.Emisor, "0205");
equal("its number", record.Telefono, "5551234567");
equal("its hour", record.Horas(1), 3);
equal("its attribute", record.Atributos, 0);

record.TipoLlamada = 7;
equal("a type that is none is undefined", record.TipoLlamada, 1);
record.Minutos(3) = 5;
equal("indexed properties are written", record.Ring, 300);
equal("adjusting answers nothing", record.AjustarHoraVespertina12Hrs24Hrs(1), undefined);
equal("an afternoon hour gains twelve", record.Horas(1), 15);

var copy = new ActiveXObject("Conmuta.clsLlamadaTRD");
copy.CopiaLlamada(record);
equal("a copy has the texts", copy.Emisor, "0205");

fails("a ring of ten hours overflows", function () { record.Horas(3) = 10; }, 6, "Desbordamiento");
fails("null cannot be copied", function () { copy.CopiaLlamada(null); }, 91,
      "Variable de objeto o de bloque With no establecida");
fails("a configuration cannot be copied as a call", function () { copy.CopiaLlamada(cfg); }, 13);
fails("a call is no configuration", function () { trad.Conmutador = copy; }, 13);
fails("a number is no configuration", function () { trad.Conmutador = 5; }, 13);
trad.Conmutador = null;
fails("a translation needs a configuration", function () { trad.TraduceEstandar(); }, 91,
      "Variable de objeto o de bloque With no establecida");
