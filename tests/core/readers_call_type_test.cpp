// Recognising the call type by its identifiers.
#include <gtest/gtest.h>

#include <ostream>

#include "platform/errors.h"
#include "support/config_builder.h"
#include "translate/readers.h"

namespace conmuta {
namespace {

using basConmuta::ObtTipoLlamada;
using test::ConfigBuilder;

struct Identifiers {
  emTiposLlamadas type;
  emParamDatoConstante plain, also, instead;  // identifier, AND, OR
};

constexpr Identifiers kIncoming = {emLlamadaEntrante, emDatoCteIdentEntrante,
                                   emDatoCteIdentEntranteAND, emDatoCteIdentEntranteOR};
constexpr Identifiers kOutgoing = {emLlamadaSaliente, emDatoCteIdentSaliente,
                                   emDatoCteIdentSalienteAND, emDatoCteIdentSalienteOR};
constexpr Identifiers kInterExtension = {emLlamadaInterExtension, emDatoCteIdentInterExtension,
                                         emDatoCteIdentInterExtensionAND,
                                         emDatoCteIdentInterExtensionOR};
constexpr Identifiers kInterTrunk = {emLlamadaInterTroncal, emDatoCteIdentInterTroncal,
                                     emDatoCteIdentInterTroncalAND, emDatoCteIdentInterTroncalOR};

void PrintTo(const Identifiers& row, std::ostream* out) {
  *out << "type " << row.type;
}

// The identifier stands at column 1, its AND at 2, its OR at 3; a digit follows.
class CallType : public testing::TestWithParam<Identifiers> {
 protected:
  ConfigBuilder& Plain() { return builder_.Constant(GetParam().plain, 1, u"P"); }
  ConfigBuilder& And() { return builder_.Constant(GetParam().also, 2, u"A"); }
  ConfigBuilder& Or() { return builder_.Constant(GetParam().instead, 3, u"O"); }

  // What the line is taken for, and that the constant looked at last is this one.
  void Expect(TextView line, bool recognised, emParamDatoConstante last) {
    const auto config = builder_.Build();
    EXPECT_EQ(ObtTipoLlamada(*config, line), recognised ? GetParam().type : emLlamadaIndefinida);
    // A type that is not recognised leaves the search to the types after it.
    const auto last_plain = emDatoCteIdentInterTroncal;
    EXPECT_EQ(config->CTEActivo(),
              recognised || GetParam().plain == last_plain ? last : last_plain);
  }

 private:
  ConfigBuilder builder_;
};

TEST_P(CallType, IsThatOfItsIdentifier) {
  Plain();
  Expect(u"P--1", true, GetParam().also);
}

TEST_P(CallType, NeedsTheAndConstantWhereDefined) {
  Plain();
  And();
  Expect(u"PA-1", true, GetParam().also);
}

TEST_P(CallType, FailsWithoutItsAndConstant) {
  Plain();
  And();
  Expect(u"P--1", false, GetParam().also);
}

TEST_P(CallType, OrConstantDoesNotMakeUpForAMissingAnd) {
  Plain();
  And();
  Or();
  Expect(u"P-O1", false, GetParam().also);
}

TEST_P(CallType, OrConstantStandsInForTheIdentifier) {
  Plain();
  Or();
  Expect(u"--O1", true, GetParam().instead);
}

TEST_P(CallType, OrConstantNeedsNoAnd) {
  Plain();
  And();
  Or();
  Expect(u"--O1", true, GetParam().instead);
}

TEST_P(CallType, AndConstantAloneIsNotEnough) {
  Plain();
  And();
  Expect(u"-A-1", false, GetParam().instead);
}

TEST_P(CallType, FailsWhenNeitherIdentifierNorOrMatches) {
  Plain();
  Or();
  Expect(u"---1", false, GetParam().instead);
}

TEST_P(CallType, WithoutIdentifierIgnoresAndAndOr) {
  And();
  Or();
  Expect(u"PAO1", false, GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(Types, CallType,
                         testing::Values(kIncoming, kOutgoing, kInterExtension, kInterTrunk));

TEST(ObtTipoLlamada, TriesIncomingOutgoingInterExtensionInterTrunk) {
  const Identifiers order[] = {kIncoming, kOutgoing, kInterExtension, kInterTrunk};
  for (std::size_t first = 0; first < 4; ++first) {
    ConfigBuilder builder;
    for (std::size_t i = 0; i < 4; ++i) {
      builder.Constant(order[i].plain, 1, i < first ? u"N" : u"P");
    }
    EXPECT_EQ(ObtTipoLlamada(*builder.Build(), u"P1"), order[first].type);
  }
}

TEST(ObtTipoLlamada, IncomingWithoutItsAndFallsThroughToOutgoing) {
  const auto config = ConfigBuilder()
                          .Constant(emDatoCteIdentEntrante, 1, u"P")
                          .Constant(emDatoCteIdentEntranteAND, 2, u"A")
                          .Constant(emDatoCteIdentSaliente, 1, u"P")
                          .Build();
  EXPECT_EQ(ObtTipoLlamada(*config, u"P-1"), emLlamadaSaliente);
  EXPECT_EQ(ObtTipoLlamada(*config, u"PA1"), emLlamadaEntrante);
}

TEST(ObtTipoLlamada, WithoutADigitLooksAtNoConstant) {
  const auto config = ConfigBuilder().Constant(emDatoCteIdentEntrante, 255, u"P").Build();
  config->CTEActivo(emNoParamDatoConstante);
  for (const TextView line : {u"", u"P", u"letters and blanks only", u"٣２²½"}) {
    EXPECT_EQ(ObtTipoLlamada(*config, line), emLlamadaIndefinida);
    EXPECT_EQ(config->CTEActivo(), emNoParamDatoConstante);
  }
}

TEST(ObtTipoLlamada, DigitMayStandAnywhere) {
  const auto config = ConfigBuilder().Constant(emDatoCteIdentEntrante, 2, u"P").Build();
  for (const TextView line : {u"0P", u"-P       9", u"-P 4 "}) {
    EXPECT_EQ(ObtTipoLlamada(*config, line), emLlamadaEntrante);
  }
}

TEST(ObtTipoLlamada, WithoutIdentifiersIsUndefined) {
  const auto config = ConfigBuilder().Build();
  EXPECT_EQ(ObtTipoLlamada(*config, u"12345"), emLlamadaIndefinida);
  EXPECT_EQ(config->CTEActivo(), emDatoCteIdentInterTroncal);
}

TEST(ObtTipoLlamada, LeavesTheActiveItemAlone) {
  const auto config = ConfigBuilder().Constant(emDatoCteIdentEntrante, 1, u"P").Build();
  config->DATOActivo(emParamRingHoras);
  ObtTipoLlamada(*config, u"P1");
  EXPECT_EQ(config->DATOActivo(), emParamRingHoras);
}

TEST(ObtTipoLlamada, IdentifierAtABadPlaceOverflows) {
  const auto config = ConfigBuilder().Constant(emDatoCteIdentInterTroncal, 255, u"P").Build();
  EXPECT_THROW(ObtTipoLlamada(*config, u"P1"), OverflowError);
}

}  // namespace
}  // namespace conmuta
