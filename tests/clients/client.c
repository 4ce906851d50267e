/* A client in C, through the generated header: what client.cpp does. */
#define COBJMACROS
#include <windows.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "conmuta.h"

/* Ends the program on a failure that nothing below expects. */
static void Check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  printf("%lX\n", (unsigned long)result);
  exit(1);
}

static BSTR NewText(const char* text) {
  const int size = MultiByteToWideChar(CP_ACP, 0, text, -1, NULL, 0);
  BSTR copy = SysAllocStringLen(NULL, (UINT)size - 1);
  MultiByteToWideChar(CP_ACP, 0, text, -1, copy, size);
  return copy;
}

/* Prints a text and releases it. */
static void PrintText(const char* before, BSTR text) {
  printf("%s%ls", before, text != NULL ? text : L"");
  SysFreeString(text);
}

/* The events: an IDispatch of our own. */
typedef struct Sink {
  IDispatch base;
  DISPID heard[256];
  int count;
} Sink;

static HRESULT STDMETHODCALLTYPE SinkQueryInterface(IDispatch* self, REFIID id, void** object) {
  const BOOL known = IsEqualIID(id, &IID_IUnknown) || IsEqualIID(id, &IID_IDispatch) ||
                     IsEqualIID(id, &DIID___clsCfgConmut);
  *object = known ? self : NULL;
  return known ? S_OK : E_NOINTERFACE;
}
/* It outlives its connection. */
static ULONG STDMETHODCALLTYPE SinkAddRef(IDispatch* self) {
  (void)self;
  return 2;
}
static ULONG STDMETHODCALLTYPE SinkRelease(IDispatch* self) {
  (void)self;
  return 1;
}
static HRESULT STDMETHODCALLTYPE SinkGetTypeInfoCount(IDispatch* self, UINT* count) {
  (void)self;
  *count = 0;
  return S_OK;
}
static HRESULT STDMETHODCALLTYPE SinkGetTypeInfo(IDispatch* self, UINT index, LCID locale,
                                                 ITypeInfo** info) {
  (void)self, (void)index, (void)locale, (void)info;
  return E_NOTIMPL;
}
static HRESULT STDMETHODCALLTYPE SinkGetIDsOfNames(IDispatch* self, REFIID id, LPOLESTR* names,
                                                   UINT count, LCID locale, DISPID* ids) {
  (void)self, (void)id, (void)names, (void)count, (void)locale, (void)ids;
  return E_NOTIMPL;
}
static HRESULT STDMETHODCALLTYPE SinkInvoke(IDispatch* self, DISPID id, REFIID interface_id,
                                            LCID locale, WORD flags, DISPPARAMS* arguments,
                                            VARIANT* result, EXCEPINFO* exception, UINT* argument) {
  Sink* sink = (Sink*)self;
  (void)interface_id, (void)locale, (void)flags, (void)arguments, (void)result;
  (void)exception, (void)argument;
  if (sink->count < (int)(sizeof sink->heard / sizeof *sink->heard)) {
    sink->heard[sink->count++] = id;
  }
  return S_OK;
}

static IDispatchVtbl sink_methods = {
    SinkQueryInterface, SinkAddRef,        SinkRelease, SinkGetTypeInfoCount,
    SinkGetTypeInfo,    SinkGetIDsOfNames, SinkInvoke};

static IConnectionPoint* Connect(_clsCfgConmut* cfg, Sink* sink, DWORD* cookie) {
  IConnectionPointContainer* container;
  IConnectionPoint* point;
  Check(_clsCfgConmut_QueryInterface(cfg, &IID_IConnectionPointContainer, (void**)&container));
  Check(IConnectionPointContainer_FindConnectionPoint(container, &DIID___clsCfgConmut, &point));
  IConnectionPointContainer_Release(container);
  Check(IConnectionPoint_Advise(point, (IUnknown*)&sink->base, cookie));
  return point;
}

typedef HRESULT(STDMETHODCALLTYPE* ReadPart)(_clsLlamadaTRD*, emParamTipoFecha, short*);

static int Part(_clsLlamadaTRD* record, emParamTipoFecha group, ReadPart read) {
  short value;
  Check(read(record, group, &value));
  return value;
}

static void PrintCall(_clsLlamadaTRD* r) {
  const struct _clsLlamadaTRDVtbl* table = r->lpVtbl;
  const BOOL left = Part(r, emParamDuracion, table->get_Anio) != 0 ||
                    Part(r, emParamDuracion, table->get_Mes) != 0 ||
                    Part(r, emParamDuracion, table->get_Dia) != 0;
  long seconds, ring;
  emTiposLlamadas type;
  emAtributosLlamadas attribute;
  BSTR text;
  Check(_clsLlamadaTRD_get_Duracion(r, &seconds));
  Check(_clsLlamadaTRD_get_Ring(r, &ring));
  Check(_clsLlamadaTRD_get_TipoLlamada(r, &type));
  Check(_clsLlamadaTRD_get_Atributos(r, &attribute));
  printf("%02d/%02d/%d;%02d:%02d:%02d;", Part(r, emParamFecha, table->get_Dia),
         Part(r, emParamFecha, table->get_Mes), Part(r, emParamFecha, table->get_Anio),
         Part(r, emParamFecha, table->get_Horas), Part(r, emParamFecha, table->get_Minutos),
         Part(r, emParamFecha, table->get_Segundos));
  if (left || seconds < 0) {
    printf("?");
  } else {
    printf("%ld", seconds);
  }
  printf(";%ld;%d;%d", ring, type, attribute);
  Check(_clsLlamadaTRD_get_Emisor(r, &text));
  PrintText(";", text);
  Check(_clsLlamadaTRD_get_Receptor(r, &text));
  PrintText(";", text);
  Check(_clsLlamadaTRD_get_Telefono(r, &text));
  PrintText(";", text);
  Check(_clsLlamadaTRD_get_ExtensionTransferida(r, &text));
  PrintText(";", text);
  Check(_clsLlamadaTRD_get_CodigoCuenta(r, &text));
  PrintText(";", text);
  printf("\n");
}

static void Translate(_clsTradEST* translator, _clsLlamadaTRD* record, const char* line,
                      int number) {
  BSTR text = NewText(line);
  const HRESULT result = _clsTradEST_put_Llamada(translator, text);
  VARIANT_BOOL valid;
  SysFreeString(text);
  if (FAILED(result)) {
    printf("! linea %d: error %ld\n", number, result & 0xFFFF);
    return;
  }
  Check(_clsLlamadaTRD_get_EsValido(record, &valid));
  if (valid) PrintCall(record);
}

static void TranslateCapture(_clsCfgConmut* cfg, _clsTradEST* translator, _clsLlamadaTRD* record,
                             const char* path) {
  char line[1024];
  size_t length = 0;
  int number = 0, c;
  short place;
  emCasos caso;
  FILE* capture = fopen(path, "rb");
  if (capture == NULL) exit(2);
  while ((c = fgetc(capture)) != EOF) {
    if (c == '\n') {
      line[length] = '\0';
      Translate(translator, record, line, ++number);
      length = 0;
    } else if (c >= 0x20 && c != 0x7F && length < sizeof line - 1) {
      line[length++] = (char)c;
    }
  }
  fclose(capture);
  Check(_clsCfgConmut_get_Caso(cfg, &caso));
  if (caso == emCasoNortelNorstar0x32SMDR6) Translate(translator, record, "--------", number);
  for (place = 1; place <= 100; ++place) Check(_clsTradEST_QuitaLlamadaLista(translator, place));
}

static const char* YesNo(VARIANT_BOOL value) {
  return value ? "si" : "no";
}

static void PrintProperties(_clsCfgConmut* cfg, _clsTradEST* translator, _clsLlamadaTRD* record) {
  BSTR text;
  emVersionConfiguracion version;
  VARIANT_BOOL flag;
  short number;
  long identifier;
  unsigned char position;
  _clsCfgConmut* used;
  DATE moment;
  emCasos caso = emCasoRestaFechasDuracion;
  emTiposLlamadas type = (emTiposLlamadas)7;

  puts("== propiedades");
  text = NewText("01/14/19 08:58AM 1201  01 5550142                        00:04'31");
  Check(_clsTradEST_put_Llamada(translator, text));
  SysFreeString(text);
  Check(_clsCfgConmut_get_Marca(cfg, &text));
  PrintText("Marca=", text);
  Check(_clsCfgConmut_get_Version(cfg, &version));
  Check(_clsCfgConmut_get_Modificado(cfg, &flag));
  Check(_clsCfgConmut_get_TamMaxSeparador(cfg, &number));
  printf("\nVersion=%d\nModificado=%s\nTamMaxSeparador=%d\n", version, YesNo(flag), number);
  Check(_clsCfgConmut_put_IDCfg(cfg, 70000));
  Check(_clsCfgConmut_get_IDCfg(cfg, &identifier));
  Check(_clsCfgConmut_put_DATOActivo(cfg, emParamFechaHoras));
  Check(_clsCfgConmut_get_DATOPos(cfg, &position));
  printf("IDCfg=%ld\nDATOPos=%d\n", identifier, position);
  Check(_clsTradEST_get_Conmutador(translator, &used));
  Check(_clsCfgConmut_get_Modelo(used, &text));
  _clsCfgConmut_Release(used);
  PrintText("Conmutador.Modelo=", text);
  Check(_clsTradEST_get_Llamada(translator, &text));
  PrintText("\nLlamada=", text);
  printf("\nAnio=%d\n", Part(record, emParamFecha, record->lpVtbl->get_Anio));
  Check(_clsLlamadaTRD_get_Fecha(record, &moment));
  printf("Fecha=%ld\n", (long)(moment + 0.5));
  Check(_clsLlamadaTRD_get_Hora(record, &moment));
  printf("Hora=%ld\n", (long)(moment * 86400 + 0.5));
  Check(_clsLlamadaTRD_get_EsValido(record, &flag));
  printf("EsValido=%s\n", YesNo(flag));
  Check(_clsTradEST_AltaLlamadaLista(translator));
  text = NewText("01");
  Check(_clsTradEST_BuscaLlamadaTroncalLista(translator, text, &number));
  SysFreeString(text);
  printf("BuscaLlamadaTroncalLista=%d\n", number);
  Check(_clsCfgConmut_put_Caso(cfg, &caso));
  Check(_clsCfgConmut_get_Caso(cfg, &caso));
  printf("Caso=%d\n", caso);
  Check(_clsLlamadaTRD_put_TipoLlamada(record, &type));
  printf("TipoLlamada=%d\n", type); /* what was stored is written back */
  text = NewText("ACME");
  Check(_clsCfgConmut_put_Marca(cfg, text));
  SysFreeString(text);
}

static void PrintError(_clsCfgConmut* cfg) {
  BSTR path = NewText("  "), source = NULL, description = NULL;
  const HRESULT result = _clsCfgConmut_Exportar(cfg, path);
  IErrorInfo* info = NULL;
  SysFreeString(path);
  if (GetErrorInfo(0, &info) == S_OK) {
    IErrorInfo_GetSource(info, &source);
    IErrorInfo_GetDescription(info, &description);
    IErrorInfo_Release(info);
  }
  printf("== error\n%lX", (unsigned long)result);
  PrintText(" ", source);
  PrintText(": ", description);
  printf("\n");
}

int main(int argc, char** argv) {
  static const char* const kEvents[] = {"CambioNombreConmutador", "ConfiguracionCargada",
                                        "Inicializado", "Cambios"};
  Sink sink = {{&sink_methods}, {0}, 0};
  _clsCfgConmut* cfg;
  _clsTradEST* translator;
  _clsLlamadaTRD* record;
  IConnectionPoint* point;
  DWORD cookie;
  BSTR path;
  int i;
  if (argc != 3) return 2;

  CoInitialize(NULL);
  Check(CoCreateInstance(&CLSID_clsCfgConmut, NULL, CLSCTX_INPROC_SERVER, &IID__clsCfgConmut,
                         (void**)&cfg));
  Check(CoCreateInstance(&CLSID_clsTradEST, NULL, CLSCTX_INPROC_SERVER, &IID__clsTradEST,
                         (void**)&translator));
  point = Connect(cfg, &sink, &cookie);
  path = NewText(argv[1]);
  Check(_clsCfgConmut_Abrir(cfg, path));
  SysFreeString(path);
  Check(_clsTradEST_putref_Conmutador(translator, cfg));
  Check(_clsTradEST_get_InfoLlamada(translator, &record));

  TranslateCapture(cfg, translator, record, argv[2]);
  PrintProperties(cfg, translator, record);
  PrintError(cfg);

  Check(IConnectionPoint_Unadvise(point, cookie));
  IConnectionPoint_Release(point);
  _clsLlamadaTRD_Release(record);
  _clsTradEST_Release(translator);
  _clsCfgConmut_Release(cfg);
  puts("== eventos");
  for (i = 0; i < sink.count; ++i) puts(kEvents[sink.heard[i] - 1]);
  CoUninitialize();
  return 0;
}
