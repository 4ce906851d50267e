// Objects of another apartment: usable through their proxies, but none of ours to look into.
#include "host_test.h"
#include "sink.h"

namespace conmuta::test {
namespace {

// A user-interface thread with one object of its own, which it hands out as streams.
class OtherApartment {
 public:
  OtherApartment(REFCLSID clsid, REFIID iid) : clsid_(clsid), iid_(iid) {
    ready_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    thread_ = CreateThread(nullptr, 0, &OtherApartment::Run, this, 0, &thread_id_);
    WaitForSingleObject(ready_, INFINITE);
  }
  ~OtherApartment() {
    PostThreadMessageW(thread_id_, WM_QUIT, 0, 0);
    DWORD index = 0;
    CoWaitForMultipleHandles(0, 20000, 1, &thread_, &index);
    CloseHandle(thread_);
    CloseHandle(ready_);
  }
  OtherApartment(const OtherApartment&) = delete;
  OtherApartment& operator=(const OtherApartment&) = delete;

  // The object's proxy in this thread's apartment.
  template <class Interface>
  ComPtr<Interface> Proxy() {
    ComPtr<Interface> proxy;
    EXPECT_EQ(CoGetInterfaceAndReleaseStream(stream_, iid_, proxy.ReceiveVoid()), S_OK);
    stream_ = nullptr;
    return proxy;
  }

 private:
  static DWORD WINAPI Run(void* self) {
    static_cast<OtherApartment*>(self)->Run();
    return 0;
  }
  void Run() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    MSG message;
    PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);  // makes the queue
    {
      ComPtr<IUnknown> object;
      CoCreateInstance(clsid_, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.ReceiveVoid());
      if (object) CoMarshalInterThreadInterfaceInStream(iid_, object.get(), &stream_);
    }
    SetEvent(ready_);
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    CoUninitialize();
  }

  const CLSID clsid_;
  const IID iid_;
  HANDLE ready_ = nullptr;
  HANDLE thread_ = nullptr;
  DWORD thread_id_ = 0;
  IStream* stream_ = nullptr;
};

class ApartmentTest : public HostTest {};

TEST_F(ApartmentTest, ObjectIsUsedThroughItsProxy) {
  OtherApartment apartment(CLSID_clsCfgConmut, IID__clsCfgConmut);
  const auto proxy = apartment.Proxy<Cfg>();
  ASSERT_TRUE(proxy);
  Do(proxy, &Cfg::put_Marca, u"ACMÉ");
  EXPECT_EQ(Read(proxy, &Cfg::get_Marca), u"ACMÉ");
  auto value = emCasoSamsungNX_820;
  Do(proxy, &Cfg::put_Caso, &value);
  EXPECT_EQ(Read(proxy, &Cfg::get_Caso), emCasoSamsungNX_820);
  EXPECT_EQ(Read(proxy, &Cfg::get_Modificado), VARIANT_TRUE);
}

TEST_F(ApartmentTest, ReplacedValueComesBackThroughTheProxy) {
  OtherApartment apartment(CLSID_clsLlamadaTRD, IID__clsLlamadaTRD);
  const auto proxy = apartment.Proxy<Trd>();
  ASSERT_TRUE(proxy);
  auto type = Code<emTiposLlamadas>(7);
  Do(proxy, &Trd::put_TipoLlamada, &type);
  EXPECT_EQ(type, emLlamadaIndefinida);
}

TEST_F(ApartmentTest, ErrorsComeThroughTheProxy) {
  OtherApartment apartment(CLSID_clsLlamadaTRD, IID__clsLlamadaTRD);
  const auto proxy = apartment.Proxy<Trd>();
  ASSERT_TRUE(proxy);
  EXPECT_EQ(proxy->put_Horas(emParamRING, 10), kOverflow);
}

TEST_F(ApartmentTest, ConfigurationOfAnotherApartmentIsATypeMismatch) {
  OtherApartment apartment(CLSID_clsCfgConmut, IID__clsCfgConmut);
  const auto proxy = apartment.Proxy<Cfg>();
  ASSERT_TRUE(proxy);
  const auto translator = NewTranslator();
  const auto own = NewConfig();
  Do(translator, &Trad::putref_Conmutador, own.get());
  EXPECT_EQ(Try(translator, &Trad::putref_Conmutador, proxy.get()), Plain(DISP_E_TYPEMISMATCH));
  EXPECT_EQ(Try(translator, &Trad::put_Conmutador, proxy.get()), Plain(DISP_E_TYPEMISMATCH));
  EXPECT_TRUE(IsSame(Read(translator, &Trad::get_Conmutador).get(), own.get()));
}

TEST_F(ApartmentTest, CallOfAnotherApartmentIsATypeMismatch) {
  OtherApartment apartment(CLSID_clsLlamadaTRD, IID__clsLlamadaTRD);
  const auto proxy = apartment.Proxy<Trd>();
  ASSERT_TRUE(proxy);
  EXPECT_EQ(Try(NewCall(), &Trd::CopiaLlamada, proxy.get()), Plain(DISP_E_TYPEMISMATCH));
}

TEST_F(ApartmentTest, OurObjectIsNoneOfAnotherApartments) {
  OtherApartment apartment(CLSID_clsTradEST, IID__clsTradEST);
  const auto proxy = apartment.Proxy<Trad>();
  ASSERT_TRUE(proxy);
  EXPECT_EQ(proxy->putref_Conmutador(NewConfig().get()), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(proxy->putref_Conmutador(nullptr), S_OK);
}

TEST_F(ApartmentTest, CallRecordOfAProxyIsOneToo) {
  OtherApartment apartment(CLSID_clsTradEST, IID__clsTradEST);
  const auto proxy = apartment.Proxy<Trad>();
  ASSERT_TRUE(proxy);
  const auto call = Read(proxy, &Trad::get_InfoLlamada);
  ASSERT_TRUE(call);
  EXPECT_EQ(Read(call, &Trd::get_TipoLlamada), emLlamadaIndefinida);
  EXPECT_EQ(Try(NewCall(), &Trd::CopiaLlamada, call.get()).result, DISP_E_TYPEMISMATCH);
}

}  // namespace
}  // namespace conmuta::test
