{ A client in Pascal, early bound through the unit that its own importer makes of the type library:
  what client.cpp does. }
program early;
{$apptype console}
{$mode delphi}
uses ActiveX, ComObj, Classes, SysUtils, Conmuta_1_0_TLB;

type
  { Writes down the events. }
  TListener = class
    heard: TStringList;
    procedure NameChanged(sender: TObject);
    procedure Loaded(sender: TObject);
    procedure Reset(sender: TObject);
    procedure Changed(sender: TObject);
  end;

procedure TListener.NameChanged(sender: TObject);
begin
  heard.Add('CambioNombreConmutador');
end;

procedure TListener.Loaded(sender: TObject);
begin
  heard.Add('ConfiguracionCargada');
end;

procedure TListener.Reset(sender: TObject);
begin
  heard.Add('Inicializado');
end;

procedure TListener.Changed(sender: TObject);
begin
  heard.Add('Cambios');
end;

function YesNo(value: Boolean): string;
begin
  if value then YesNo := 'si' else YesNo := 'no';
end;

function CallLine(r: _clsLlamadaTRD): string;
const
  D = emParamDuracion;
  F = emParamFecha;
var
  duration: string;
begin
  if (r.Anio[D] <> 0) or (r.Mes[D] <> 0) or (r.Dia[D] <> 0) or (r.Duracion < 0) then
    duration := '?'
  else
    duration := IntToStr(r.Duracion);
  CallLine := Format('%.2d/%.2d/%d;%.2d:%.2d:%.2d;%s;%d;%d;%d;', [r.Dia[F], r.Mes[F], r.Anio[F],
    r.Horas[F], r.Minutos[F], r.Segundos[F], duration, r.Ring, r.TipoLlamada, r.Atributos]) +
    string(r.Emisor) + ';' + string(r.Receptor) + ';' + string(r.Telefono) + ';' +
    string(r.ExtensionTransferida) + ';' + string(r.CodigoCuenta);
end;

procedure Translate(translator: _clsTradEST; r: _clsLlamadaTRD; line: string; number: Integer);
begin
  try
    translator.Llamada := line;
  except
    on e: EOleException do
    begin
      WriteLn('! linea ', number, ': error ', e.ErrorCode and $FFFF);
      Exit;
    end;
  end;
  if r.EsValido then WriteLn(CallLine(r));
end;

procedure TranslateCapture(cfg: _clsCfgConmut; translator: _clsTradEST; r: _clsLlamadaTRD;
  path: string);
var
  capture: TStringList;
  number, i: Integer;
  line: string;
  c: Char;
begin
  capture := TStringList.Create;
  capture.LoadFromFile(path);
  for number := 1 to capture.Count do
  begin
    line := '';
    for c in capture[number - 1] do
      if (c >= ' ') and (c <> #127) then line := line + c;
    Translate(translator, r, line, number);
  end;
  if cfg.Caso = emCasoNortelNorstar0x32SMDR6 then
    Translate(translator, r, '--------', capture.Count);
  for i := 1 to 100 do translator.QuitaLlamadaLista(i);
  capture.Free;
end;

procedure ShowProperties(cfg: _clsCfgConmut; translator: _clsTradEST; r: _clsLlamadaTRD);
var
  caso: emCasos;
  tipo: emTiposLlamadas;
begin
  WriteLn('== propiedades');
  translator.Llamada := '01/14/19 08:58AM 1201  01 5550142                        00:04''31';
  WriteLn('Marca=', cfg.Marca);
  WriteLn('Version=', cfg.Version);
  WriteLn('Modificado=', YesNo(cfg.Modificado));
  WriteLn('TamMaxSeparador=', cfg.TamMaxSeparador);
  cfg.IDCfg := 70000;
  WriteLn('IDCfg=', cfg.IDCfg);
  cfg.DATOActivo := emParamFechaHoras;
  WriteLn('DATOPos=', cfg.DATOPos);
  WriteLn('Conmutador.Modelo=', translator.Conmutador.Modelo);
  WriteLn('Llamada=', translator.Llamada);
  WriteLn('Anio=', r.Anio[emParamFecha]);
  WriteLn('Fecha=', Round(Double(r.Fecha)));
  WriteLn('Hora=', Round(Double(r.Hora) * 86400));
  WriteLn('EsValido=', YesNo(r.EsValido));
  translator.AltaLlamadaLista;
  WriteLn('BuscaLlamadaTroncalLista=', translator.BuscaLlamadaTroncalLista('01'));
  { By reference: the importer makes procedures of such writes. }
  caso := emCasoRestaFechasDuracion;
  cfg.Set_Caso(caso);
  WriteLn('Caso=', cfg.Caso);
  tipo := 7;
  r.Set_TipoLlamada(tipo);
  WriteLn('TipoLlamada=', tipo); { what was stored is written back }
  cfg.Marca := 'ACME';
end;

procedure ShowError(cfg: _clsCfgConmut);
begin
  WriteLn('== error');
  try
    cfg.Exportar('  ');
  except
    on e: EOleException do
      WriteLn(HexStr(LongInt(e.ErrorCode), 8), ' ', e.Source, ': ', e.Message);
  end;
end;

procedure Run;
var
  listener: TListener;
  events: TEvsclsCfgConmut;
  cfg: _clsCfgConmut;
  translator: _clsTradEST;
  r: _clsLlamadaTRD;
begin
  listener := TListener.Create;
  listener.heard := TStringList.Create;
  events := TEvsclsCfgConmut.Create(nil);
  events.OnCambioNombreConmutador := listener.NameChanged;
  events.OnConfiguracionCargada := listener.Loaded;
  events.OnInicializado := listener.Reset;
  events.OnCambios := listener.Changed;
  cfg := events.ComServer;
  cfg.Abrir(ParamStr(1));
  translator := CoclsTradEST.Create;
  translator.Conmutador := cfg;
  r := translator.InfoLlamada;
  TranslateCapture(cfg, translator, r, ParamStr(2));
  ShowProperties(cfg, translator, r);
  ShowError(cfg);
  WriteLn('== eventos');
  Write(listener.heard.Text);
end;

begin
  CoInitialize(nil);
  Run;
end.
