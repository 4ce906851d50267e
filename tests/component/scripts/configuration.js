// A configuration as JScript sees it.
var cfg = new ActiveXObject("Conmuta.clsCfgConmut");

equal("a new one has no name", cfg.NombreConmutador, "Desconocido");
equal("a new one is not modified", cfg.Modificado, false);
equal("a new one has the version", cfg.Version, 3);
equal("the separator has ten characters", cfg.TamMaxSeparador, 10);

cfg.Marca = "ACME";
cfg.Modelo = "X1";
equal("brand and model make the name", cfg.NombreConmutador, "ACME, X1");
equal("brand and model make a configuration", cfg.HayConfig, true);
cfg.Separador = "\r\n";
equal("the separator is listed by its codes", cfg.ListaSeparador, "13,10,0,0,0,0,0,0,0,0,");
cfg.Comentarios = "a\u0000\u00F1\u4E2D";
equal("texts drop NULs and keep accents", cfg.Comentarios, "a\u00F1\u4E2D");
cfg.Caso = 2;
equal("the case is written by value", cfg.Caso, 2);
cfg.Caso = "3";
equal("the case may come as text", cfg.Caso, 3);
equal("a case has its name", cfg.ObtNombreCaso(5), "Resta de fechas para calcular la duraci\u00F3n");
equal("an item has its description", cfg.ObtDescDATO(2), "D\u00EDa de la fecha ");
equal("a constant has its description", cfg.ObtDescCTE(24), "No parametro");

cfg.DATOActivo = 2;
cfg.DATOPos = 5;
equal("an item without a size is not there", cfg.HayDATO, false);
cfg.DATOTam = 2;
equal("an item with position and size is there", cfg.HayDATO, true);
cfg.DATOPos = 2.5;
equal("a fraction is rounded to the even", cfg.DATOPos, 2);

fails("a position beyond a byte overflows", function () { cfg.DATOPos = 300; }, 6);
fails("a word is no position", function () { cfg.DATOPos = "abc"; }, 13);
fails("an undefined item is no position", function () { cfg.DATOPos = null; }, 13);
equal("a failed write changes nothing", cfg.DATOPos, 2);

fails("saving needs a name", function () { cfg.GuardarComo(""); }, 1501,
      "No es posible encontrar el archivo deseado.");
fails("opening tells the file", function () { cfg.Abrir("Z:\\no hay \u00F1.cfg"); }, 1501,
      "No es posible encontrar el archivo deseado.\r\n Archivo :Z:\\no hay \u00F1.cfg");

cfg.PuertoActivo = 1;
cfg.PinIZQ = 3;
cfg.PinDER = 2;
cfg.PinesConectados = true;
equal("a wire is made", cfg.PinesConectados, true);
cfg.Iniciar();
equal("a reset one has no name", cfg.NombreConmutador, "Desconocido");
