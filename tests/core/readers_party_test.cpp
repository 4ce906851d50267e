// Which slot supplies number, caller and callee.
#include <gtest/gtest.h>

#include <ostream>

#include "platform/errors.h"
#include "support/config_builder.h"
#include "translate/readers.h"

namespace conmuta {
namespace {

using basConmuta::FieldBuffer;
using basConmuta::ObtEmisor;
using basConmuta::ObtReceptor;
using basConmuta::ObtTelefono;
using test::ConfigBuilder;

constexpr int kFirstKind = emParamTelefonoEntrante;
constexpr int kLastKind = emParamTroncal2InterTroncalFinTransferida;

// Each of the kinds has one column of its own, and each column a character of its own.
char16_t MarkOf(int kind) {
  return static_cast<char16_t>(u'A' + kind - kFirstKind);
}

class Parties : public testing::Test {
 protected:
  Parties() {
    ConfigBuilder builder;
    for (int kind = kFirstKind; kind <= kLastKind; ++kind) {
      builder.TextItem(static_cast<emParamDato>(kind), kind - kFirstKind + 1, 1);
      line_ += MarkOf(kind);
    }
    config_ = builder.Build();
  }

  std::unique_ptr<clsCfgConmut> config_;
  Text line_;
  FieldBuffer buffer_;
};

struct PartyKinds {
  int type, attribute;
  int phone, caller, callee;
};

void PrintTo(const PartyKinds& row, std::ostream* out) {
  *out << "type " << row.type << ", attribute " << row.attribute;
}

class PartyTable : public Parties, public testing::WithParamInterface<PartyKinds> {};

TEST_P(PartyTable, ChoosesTheSlotByTypeAndAttribute) {
  const PartyKinds& row = GetParam();
  const auto type = static_cast<emTiposLlamadas>(row.type);
  const auto attribute = static_cast<emAtributosLlamadas>(row.attribute);
  EXPECT_EQ(Text(ObtTelefono(*config_, type, attribute, line_, buffer_)),
            Text(1, MarkOf(row.phone)));
  EXPECT_EQ(config_->DATOActivo(), row.phone);
  EXPECT_EQ(Text(ObtEmisor(*config_, type, attribute, line_, buffer_)),
            Text(1, MarkOf(row.caller)));
  EXPECT_EQ(config_->DATOActivo(), row.caller);
  EXPECT_EQ(Text(ObtReceptor(*config_, type, attribute, line_, buffer_)),
            Text(1, MarkOf(row.callee)));
  EXPECT_EQ(config_->DATOActivo(), row.callee);
}

INSTANTIATE_TEST_SUITE_P(Rows, PartyTable,
                         testing::Values(PartyKinds{2, 0, 18, 30, 31}, PartyKinds{2, 1, 22, 38, 39},
                                         PartyKinds{2, 3, 23, 40, 41}, PartyKinds{3, 0, 19, 33, 32},
                                         PartyKinds{3, 1, 24, 43, 42}, PartyKinds{3, 3, 25, 45, 44},
                                         PartyKinds{4, 0, 20, 34, 35}, PartyKinds{4, 1, 26, 46, 47},
                                         PartyKinds{4, 3, 27, 48, 49}, PartyKinds{5, 0, 21, 36, 37},
                                         PartyKinds{5, 1, 28, 50, 51},
                                         PartyKinds{5, 3, 29, 52, 53}));

TEST_F(Parties, AreEmptyForEveryOtherTypeAndAttribute) {
  config_->DATOActivo(emNoParamDato);
  const auto expect_empty = [&](int type_code, int attribute_code) {
    const auto type = static_cast<emTiposLlamadas>(type_code);
    const auto attribute = static_cast<emAtributosLlamadas>(attribute_code);
    for (const auto read : {ObtTelefono, ObtEmisor, ObtReceptor}) {
      EXPECT_TRUE(read(*config_, type, attribute, line_, buffer_).empty())
          << "type " << type_code << ", attribute " << attribute_code;
    }
  };
  for (const int type : {-1, 0, 1, 6, 7, 1000}) {
    for (int attribute = -1; attribute <= 4; ++attribute) expect_empty(type, attribute);
  }
  for (int type = 2; type <= 5; ++type) {
    for (const int attribute : {-1, 2, 4, 1000}) expect_empty(type, attribute);
  }
  EXPECT_EQ(config_->DATOActivo(), emNoParamDato) << "a slot was looked at";
}

TEST_F(Parties, OfANumericSlotAreItsDigits) {
  test::DefineItem(*config_, emParamTroncalEntrante, 1, 6);
  EXPECT_EQ(Text(ObtEmisor(*config_, emLlamadaEntrante, emSinAtributo, u"T-07 1", buffer_)),
            u"071");
}

TEST_F(Parties, WithoutSlotAreEmpty) {
  const auto empty = ConfigBuilder().Build();
  for (const auto read : {ObtTelefono, ObtEmisor, ObtReceptor}) {
    EXPECT_TRUE(read(*empty, emLlamadaEntrante, emSinAtributo, line_, buffer_).empty());
  }
}

TEST_F(Parties, AtABadPlaceOverflow) {
  test::DefineItem(*config_, emParamTroncalEntrante, 255, 1);
  EXPECT_THROW(ObtEmisor(*config_, emLlamadaEntrante, emSinAtributo, line_, buffer_),
               OverflowError);
}

}  // namespace
}  // namespace conmuta
