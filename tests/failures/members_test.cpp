// Every member of every class, without memory, as early and as late bound hosts call it.
#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "component/scratch_files.h"
#include "every_member.h"
#include "rounds.h"
#include "windows/samples.h"

namespace conmuta::test {
namespace {

enum class Road { kDirect, kDispatch };

struct PublicClass {
  const char* name;
  const IID& iid;
  ComPtr<IDispatch> (*make)(const ScratchFolder&);
};

template <class Interface>
ComPtr<IDispatch> AsDispatch(const ComPtr<Interface>& object) {
  return ComPtr<IDispatch>(object.get());
}

ComPtr<IDispatch> MakeConfig(const ScratchFolder&) {
  const auto config = TypicalConfig();
  Do(config, &Cfg::put_Comentarios, Text(200, u'c'));
  return AsDispatch(config);
}
ComPtr<IDispatch> MakeTranslator(const ScratchFolder&) {
  const auto translator = NewTranslator();
  Do(translator, &Trad::put_Llamada, u"21/11 10:05 00:07:20 E 5551234567 205");
  Do(translator, &Trad::put_Conmutador, TypicalConfig().get());
  return AsDispatch(translator);
}
ComPtr<IDispatch> MakeCall(const ScratchFolder&) {
  const auto call = NewCall();
  Do(call, &Trd::put_Telefono, u"5551234567890123");
  return AsDispatch(call);
}
ComPtr<IDispatch> MakeCatalogue(const ScratchFolder& folder) {
  const auto catalogue = NewCatalogue();
  Do(catalogue, &Catalogue::put_Directorio, folder.Path(u""));
  Do(catalogue, &Catalogue::put_Prefijo, u"cnm");
  Do(catalogue, &Catalogue::put_Extension, u"cfg");
  Do(catalogue, &Catalogue::put_ArchivoInstalado, folder.Path(u"activo.dat"));
  return AsDispatch(catalogue);
}

const PublicClass kClasses[] = {
    {"clsCfgConmut", IID__clsCfgConmut, MakeConfig},
    {"clsTradEST", IID__clsTradEST, MakeTranslator},
    {"clsLlamadaTRD", IID__clsLlamadaTRD, MakeCall},
    {"clsConmutadores", IID__clsConmutadores, MakeCatalogue},
};

// Windows close at once: what they meet in the queue is its end.
class WithoutWindows {
 public:
  WithoutWindows() { PostQuitMessage(0); }
  ~WithoutWindows() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
  }
};

class Caller final : public Host {
 public:
  Caller(const PublicClass& c, const LibraryMember& member, Road road, const ScratchFolder& folder)
      : road_(road), object_(c.make(folder)) {
    IDispatch* const argument = member.name.ends_with("CopiaLlamada") ? object_.get() : nullptr;
    const bool is_text_file = member.name.ends_with("portar");
    if (road == Road::kDispatch) Prepare();
    values_.emplace(member, folder.Path(is_text_file ? u"a.txt" : u"cnm1.cfg"), argument);
  }

  HRESULT Act() override {
    const WithoutWindows closed;
    return road_ == Road::kDirect ? values_->CallDirectly(object_.get())
                                  : values_->CallByDispatch(object_.get());
  }

  // Exporting and importing have numbers of their own for every failure.
  bool MayAnswer(HRESULT answered) const override {
    return answered == static_cast<HRESULT>(0x800405DF) ||
           answered == static_cast<HRESULT>(0x800405E0);
  }

 private:
  // Late binding is made ready by the first call; what it takes is another test's matter.
  void Prepare() {
    std::wstring name = L"x";
    OLECHAR* names[] = {name.data()};
    DISPID id = DISPID_UNKNOWN;
    object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  }

  const Road road_;
  const ComPtr<IDispatch> object_;
  std::optional<Values> values_;
};

bool OpensWindow(const LibraryMember& member) {
  return member.name.starts_with("Mostrar") || member.name.starts_with("Muestra") ||
         member.name.starts_with("ED") || member.name == "Editar";
}

class EveryMember : public testing::TestWithParam<std::tuple<int, Road>> {
 protected:
  const PublicClass& Class() const { return kClasses[std::get<0>(GetParam())]; }
};

TEST_P(EveryMember, SurvivesTheWantOfMemory) {
  const ScratchFolder folder;
  Do(TypicalConfig(), &Cfg::GuardarComo, folder.Path(u"cnm1.cfg"));
  Do(TypicalConfig(), &Cfg::Exportar, folder.Path(u"a.txt"));
  const Road road = std::get<1>(GetParam());
  int able_to_fail = 0;
  for (const LibraryMember& member : MembersOf(Class().iid)) {
    if (road == Road::kDispatch && OpensWindow(member)) continue;  // the same window
    able_to_fail += RunRoundsIfAny(Supply::kMemory, member.name, [&] {
      return std::make_unique<Caller>(Class(), member, road, folder);
    });
  }
  EXPECT_GT(able_to_fail, 0);
}

INSTANTIATE_TEST_SUITE_P(, EveryMember,
                         testing::Combine(testing::Range(0, 4),
                                          testing::Values(Road::kDirect, Road::kDispatch)),
                         [](const auto& test) {
                           return std::string(kClasses[std::get<0>(test.param)].name) +
                                  (std::get<1>(test.param) == Road::kDirect ? "Directly"
                                                                            : "ByDispatch");
                         });

}  // namespace
}  // namespace conmuta::test
