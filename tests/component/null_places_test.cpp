// Members that hand something out, asked without a place to put it.
#include "host_test.h"

namespace conmuta::test {
namespace {

class NullPlacesTest : public HostTest {};

// What an earlier failure said must not be taken for this one's words.
void LeaveErrorInformation() {
  EXPECT_EQ(NewCall()->CopiaLlamada(nullptr), kObjectNotSet);
}

template <class I, class Out>
void ExpectRefusal(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(Out*),
                   int number) {
  LeaveErrorInformation();
  EXPECT_EQ(Try(object, member, nullptr), Plain(E_POINTER)) << "member " << number;
}
template <class I, class In, class Out>
void ExpectRefusal(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(In, Out*),
                   In argument, int number) {
  LeaveErrorInformation();
  EXPECT_EQ(Try(object, member, argument, nullptr), Plain(E_POINTER)) << "member " << number;
}

template <class I, class... Out>
void ExpectRefused(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*... members)(Out*)) {
  int number = 0;
  (ExpectRefusal(object, members, ++number), ...);
}
template <class I, class In, class... Out>
void ExpectRefusedWith(const ComPtr<I>& object, In argument,
                       HRESULT (STDMETHODCALLTYPE I::*... members)(In, Out*)) {
  int number = 0;
  (ExpectRefusal(object, members, argument, ++number), ...);
}

TEST_F(NullPlacesTest, Configuration) {
  const auto config = NewConfig();
  ExpectRefused(config, &Cfg::get_Modificado, &Cfg::get_HayConfig, &Cfg::get_IDCfg,
                &Cfg::get_Version, &Cfg::get_NombreVersion, &Cfg::get_Caso, &Cfg::put_Caso,
                &Cfg::get_NombreCaso, &Cfg::get_Marca, &Cfg::get_Modelo, &Cfg::get_NombreConmutador,
                &Cfg::get_Comentarios, &Cfg::get_Separador, &Cfg::get_ListaSeparador,
                &Cfg::get_DATOActivo, &Cfg::get_CTEActivo, &Cfg::get_HayDATO, &Cfg::get_HayCTE,
                &Cfg::get_TipoDatoDATO, &Cfg::get_TipoDatoCTE, &Cfg::get_DATOPos, &Cfg::get_DATOTam,
                &Cfg::get_CTEPos, &Cfg::get_CTETam, &Cfg::get_Constante, &Cfg::get_PuertoActivo,
                &Cfg::get_PinIZQ, &Cfg::get_PinDER, &Cfg::get_PinesConectados,
                &Cfg::get_TamMaxSeparador, &Cfg::get_TamMaxComentarios);
  ExpectRefusedWith(config, emCasoEstandar, &Cfg::ObtNombreCaso);
  ExpectRefusedWith(config, emParamFechaDia, &Cfg::ObtDescDATO);
  ExpectRefusedWith(config, emDatoCteIdentEntrante, &Cfg::ObtDescCTE);
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
}

TEST_F(NullPlacesTest, CallRecord) {
  const auto call = NewCall();
  ExpectRefusedWith(call, emParamFecha, &Trd::get_Anio, &Trd::get_Mes, &Trd::get_Dia,
                    &Trd::get_Horas, &Trd::get_Minutos, &Trd::get_Segundos,
                    &Trd::AjustarHoraVespertina12Hrs24Hrs);
  ExpectRefused(call, &Trd::get_Fecha, &Trd::get_Hora, &Trd::get_Duracion, &Trd::get_Ring,
                &Trd::get_TipoLlamada, &Trd::put_TipoLlamada, &Trd::get_Atributos,
                &Trd::put_Atributos, &Trd::get_Telefono, &Trd::get_ExtensionTransferida,
                &Trd::get_Emisor, &Trd::get_Receptor, &Trd::get_CodigoCuenta, &Trd::get_EsValido);
}

TEST_F(NullPlacesTest, Translator) {
  const auto translator = NewTranslator();
  ExpectRefused(translator, &Trad::get_Llamada, &Trad::get_Conmutador, &Trad::get_InfoLlamada);
  const Bstr trunk(u"T001");
  ExpectRefusedWith(translator, trunk.get(), &Trad::BuscaLlamadaTroncalLista);
}

TEST_F(NullPlacesTest, CatalogueOfSwitches) {
  ExpectRefused(NewCatalogue(), &Catalogue::get_Directorio, &Catalogue::get_Prefijo,
                &Catalogue::get_Extension, &Catalogue::get_ArchivoInstalado,
                &Catalogue::get_Instalado);
}

}  // namespace
}  // namespace conmuta::test
