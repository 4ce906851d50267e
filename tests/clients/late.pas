{ A client in Pascal, late bound: what client.cpp does, by the names of the members. Properties are
  assigned from variables, as hosts do it. }
program late;
{$apptype console}
{$mode delphi}
uses ActiveX, ComObj, Classes, EventSink, SysUtils, Variants;

const
  Events: TGUID = '{E269772B-8C36-498D-8A5D-851DF9BC46CA}';

type
  { Writes down the events, which a late-bound client knows by their numbers. }
  TListener = class
    heard: TStringList;
    procedure Invoked(sender: TObject; id: Integer; const iid: TGUID; locale: Integer; flags: Word;
      params: tagDISPPARAMS; result, exception, argument: Pointer);
  end;

procedure TListener.Invoked(sender: TObject; id: Integer; const iid: TGUID; locale: Integer;
  flags: Word; params: tagDISPPARAMS; result, exception, argument: Pointer);
const
  Names: array[1..4] of string = ('CambioNombreConmutador', 'ConfiguracionCargada',
    'Inicializado', 'Cambios');
begin
  heard.Add(Names[id]);
end;

function Digits(number: Integer): string;
begin
  Digits := Format('%.2d', [number]);
end;

function YesNo(value: Boolean): string;
begin
  if value then YesNo := 'si' else YesNo := 'no';
end;

function CallLine(r: OleVariant): string;
var
  duration: string;
begin
  if (r.Anio[2] <> 0) or (r.Mes[2] <> 0) or (r.Dia[2] <> 0) or (r.Duracion < 0) then
    duration := '?'
  else
    duration := IntToStr(r.Duracion);
  CallLine := Digits(r.Dia[1]) + '/' + Digits(r.Mes[1]) + '/' + IntToStr(r.Anio[1]) + ';' +
    Digits(r.Horas[1]) + ':' + Digits(r.Minutos[1]) + ':' + Digits(r.Segundos[1]) + ';' +
    duration + ';' + IntToStr(r.Ring) + ';' + IntToStr(r.TipoLlamada) + ';' +
    IntToStr(r.Atributos) + ';' + string(r.Emisor) + ';' + string(r.Receptor) + ';' +
    string(r.Telefono) + ';' + string(r.ExtensionTransferida) + ';' + string(r.CodigoCuenta);
end;

procedure Translate(translator, r: OleVariant; line: string; number: Integer);
var
  text: OleVariant;
begin
  try
    text := line;
    translator.Llamada := text;
  except
    on e: EOleException do
    begin
      WriteLn('! linea ', number, ': error ', e.ErrorCode and $FFFF);
      Exit;
    end;
  end;
  if r.EsValido then WriteLn(CallLine(r));
end;

procedure TranslateCapture(cfg, translator, r: OleVariant; path: string);
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
  if cfg.Caso = 4 then Translate(translator, r, '--------', capture.Count);
  for i := 1 to 100 do translator.QuitaLlamadaLista(i);
  capture.Free;
end;

procedure ShowProperties(cfg, translator, r: OleVariant);
var
  value: OleVariant;
begin
  WriteLn('== propiedades');
  value := '01/14/19 08:58AM 1201  01 5550142                        00:04''31';
  translator.Llamada := value;
  WriteLn('Marca=', string(cfg.Marca));
  WriteLn('Version=', Integer(cfg.Version));
  WriteLn('Modificado=', YesNo(cfg.Modificado));
  WriteLn('TamMaxSeparador=', Integer(cfg.TamMaxSeparador));
  value := 70000;
  cfg.IDCfg := value;
  WriteLn('IDCfg=', Integer(cfg.IDCfg));
  value := 5;
  cfg.DATOActivo := value;
  WriteLn('DATOPos=', Integer(cfg.DATOPos));
  WriteLn('Conmutador.Modelo=', string(translator.Conmutador.Modelo));
  WriteLn('Llamada=', string(translator.Llamada));
  WriteLn('Anio=', Integer(r.Anio[1]));
  WriteLn('Fecha=', Round(Double(TDateTime(r.Fecha))));
  WriteLn('Hora=', Round(Double(TDateTime(r.Hora)) * 86400));
  WriteLn('EsValido=', YesNo(r.EsValido));
  translator.AltaLlamadaLista;
  WriteLn('BuscaLlamadaTroncalLista=', Integer(translator.BuscaLlamadaTroncalLista('01')));
  value := 5;
  cfg.Caso := value;
  WriteLn('Caso=', Integer(cfg.Caso));
  value := 7;
  r.TipoLlamada := value;
  WriteLn('TipoLlamada=', Integer(r.TipoLlamada));
  value := 'ACME';
  cfg.Marca := value;
end;

procedure ShowError(cfg: OleVariant);
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
  sink: TEventSink;
  cfg, translator, r: OleVariant;
begin
  cfg := CreateOleObject('Conmuta.clsCfgConmut');
  listener := TListener.Create;
  listener.heard := TStringList.Create;
  sink := TEventSink.Create(nil);
  sink.OnInvoke := listener.Invoked;
  sink.Connect(IDispatch(cfg), Events);
  cfg.Abrir(ParamStr(1));
  translator := CreateOleObject('Conmuta.clsTradEST');
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
