// The two reports in the information window.
#include "ui/reports.h"

#include <gtest/gtest.h>

#include "config/report.h"
#include "platform/errors.h"
#include "support/config_snapshot.h"
#include "support/fake_month_names.h"
#include "support/translation.h"
#include "translate/report.h"

namespace conmuta {
namespace {

using test::Shown;

struct Shot {
  Text caption;
  Text text;
  int width;
  int height;
};
using Shots = std::vector<Shot>;

// Notes what it is to show; its user reads, and presses the button.
class RecordingInfoView final : public frmInfo::View {
 public:
  explicit RecordingInfoView(Shots& shots) : shots_(shots) {}
  void Update() override {}
  void Run(frmInfo& window) override {
    shots_.push_back({window.caption, window.txtInfo, window.width_twips, window.height_twips});
    window.btnCerrar();
    EXPECT_TRUE(closed_);
  }
  void Close() override { closed_ = true; }

 private:
  Shots& shots_;
  bool closed_ = false;
};

class Reports : public testing::Test {
 protected:
  void ExpectOneShot(const Text& text, int width, int height) {
    ASSERT_EQ(shots.size(), 1u);
    EXPECT_EQ(Shown(shots[0].caption), Shown(u"Información general de configuración"));
    EXPECT_EQ(Shown(shots[0].text), Shown(text));
    EXPECT_EQ(shots[0].width, width);
    EXPECT_EQ(shots[0].height, height);
  }

  Shots shots;
  const ViewFactory<frmInfo> view = [this] { return std::make_unique<RecordingInfoView>(shots); };
  test::FakeMonthNames months;
  test::Translation desk{test::ConfigBuilder()
                             .Item(emParamFechaDia, 1, 2)
                             .Constant(emDatoCteIdentEntrante, 1, u"I")
                             .Build()};
};

TEST_F(Reports, ConfigurationIsShownOnceInItsSize) {
  MostrarInformacionConfiguracion(*desk.config, view);
  ExpectOneShot(ConfigurationReport(*desk.config), 8500, 5500);
}

TEST_F(Reports, TranslationKeepsTheCaptionOfTheOther) {
  desk.Translate(u"05 line");
  MuestraInfoTrad(desk.translator, months, view);
  ExpectOneShot(TranslationReport(desk.translator, months), 7500, 5500);
}

TEST_F(Reports, NothingIsShownWithoutAConfiguration) {
  desk.translator.Conmutador(nullptr);
  EXPECT_THROW(MuestraInfoTrad(desk.translator, months, view), ObjectNotSetError);
  EXPECT_TRUE(shots.empty());
}

TEST_F(Reports, NothingIsShownForADateThatCannotBe) {
  desk.call().Anio(emParamFecha, 10000);
  desk.call().Mes(emParamFecha, 1);
  desk.call().Dia(emParamFecha, 1);
  EXPECT_THROW(MuestraInfoTrad(desk.translator, months, view), InvalidArgumentError);
  EXPECT_TRUE(shots.empty());
}

}  // namespace
}  // namespace conmuta
