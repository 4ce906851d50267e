// Hosts that hand in objects of their own in the place of ours.
#include "host_test.h"

namespace conmuta::test {
namespace {

// Claims an interface of ours without being ours. None of its members may be called.
class Impostor final : public IDispatch {
 public:
  explicit Impostor(const IID& claimed) : claimed_(claimed) {}
  ~Impostor() { EXPECT_EQ(references_, 0); }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    const bool known = IsEqualGUID(iid, IID_IUnknown) || IsEqualGUID(iid, IID_IDispatch) ||
                       IsEqualGUID(iid, claimed_);
    *object = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references_); }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    ADD_FAILURE() << "nobody may call this";
    return E_NOTIMPL;
  }

  template <class Interface>
  Interface* As() {
    return reinterpret_cast<Interface*>(static_cast<IDispatch*>(this));
  }

 private:
  const IID& claimed_;
  long references_ = 0;
};

class ForeignObjectsTest : public HostTest {};

TEST_F(ForeignObjectsTest, ConfigurationOfTheHostsOwnMakingIsATypeMismatch) {
  Impostor impostor(IID__clsCfgConmut);
  const auto translator = NewTranslator();
  EXPECT_EQ(Try(translator, &Trad::putref_Conmutador, impostor.As<Cfg>()),
            Plain(DISP_E_TYPEMISMATCH));
  EXPECT_EQ(Try(translator, &Trad::put_Conmutador, impostor.As<Cfg>()), Plain(DISP_E_TYPEMISMATCH));
  EXPECT_FALSE(Read(translator, &Trad::get_Conmutador));
}

TEST_F(ForeignObjectsTest, CallOfTheHostsOwnMakingIsATypeMismatch) {
  Impostor impostor(IID__clsLlamadaTRD);
  EXPECT_EQ(Try(NewCall(), &Trd::CopiaLlamada, impostor.As<Trd>()), Plain(DISP_E_TYPEMISMATCH));
}

TEST_F(ForeignObjectsTest, ObjectOfAnotherClassIsATypeMismatch) {
  const auto wrong = NewCall();
  const auto translator = NewTranslator();
  auto* const claimed = reinterpret_cast<Cfg*>(static_cast<IDispatch*>(wrong.get()));
  EXPECT_EQ(Try(translator, &Trad::putref_Conmutador, claimed), Plain(DISP_E_TYPEMISMATCH));
  EXPECT_FALSE(Read(translator, &Trad::get_Conmutador));
}

}  // namespace
}  // namespace conmuta::test
