// Recognising the start and the end of a transfer.
#include <gtest/gtest.h>

#include <ostream>

#include "platform/errors.h"
#include "support/config_builder.h"
#include "translate/readers.h"

namespace conmuta {
namespace {

using basConmuta::ObtAtributos;
using test::ConfigBuilder;

struct TransferIdentifiers {
  emTiposLlamadas type;
  emParamDatoConstante start, end;
};

void PrintTo(const TransferIdentifiers& row, std::ostream* out) {
  *out << "type " << row.type;
}

constexpr TransferIdentifiers kRows[] = {
    {emLlamadaEntrante, emDatoCteIdentEntranteInicioTransferida,
     emDatoCteIdentEntranteFinTransferida},
    {emLlamadaSaliente, emDatoCteIdentSalienteInicioTransferida,
     emDatoCteIdentSalienteFinTransferida},
    {emLlamadaInterExtension, emDatoCteIdentInterExtensionInicioTransferida,
     emDatoCteIdentInterExtensionFinTransferida},
    {emLlamadaInterTroncal, emDatoCteIdentInterTroncalInicioTransferida,
     emDatoCteIdentInterTroncalFinTransferida}};

class TransferAttribute : public testing::TestWithParam<TransferIdentifiers> {
 protected:
  // Start marked by S at column 1, end by E at column 2.
  std::unique_ptr<clsCfgConmut> config_ =
      ConfigBuilder().Constant(GetParam().start, 1, u"S").Constant(GetParam().end, 2, u"E").Build();
};

TEST_P(TransferAttribute, IsStartWhereTheStartIdentifierMatches) {
  EXPECT_EQ(ObtAtributos(*config_, GetParam().type, u"S-"), emAtributoIniTransferida);
  EXPECT_EQ(config_->CTEActivo(), GetParam().start);
}

TEST_P(TransferAttribute, IsEndWhereTheEndIdentifierMatches) {
  EXPECT_EQ(ObtAtributos(*config_, GetParam().type, u"-E"), emAtributoFinTransferida);
  EXPECT_EQ(config_->CTEActivo(), GetParam().end);
}

TEST_P(TransferAttribute, IsStartWhereBothMatch) {
  EXPECT_EQ(ObtAtributos(*config_, GetParam().type, u"SE"), emAtributoIniTransferida);
}

TEST_P(TransferAttribute, IsNoneWhereNeitherMatches) {
  for (const TextView line : {u"", u"--", u"se", u"ES"}) {
    EXPECT_EQ(ObtAtributos(*config_, GetParam().type, line), emSinAtributo);
    EXPECT_EQ(config_->CTEActivo(), GetParam().end);
  }
}

TEST_P(TransferAttribute, DoesNotLookAtOtherTypesIdentifiers) {
  for (const TransferIdentifiers& other : kRows) {
    if (other.type == GetParam().type) continue;
    EXPECT_EQ(ObtAtributos(*config_, other.type, u"SE"), emSinAtributo) << other.type;
  }
}

INSTANTIATE_TEST_SUITE_P(Types, TransferAttribute, testing::ValuesIn(kRows));

TEST(ObtAtributos, OfOtherTypesIsNoneWithoutALook) {
  ConfigBuilder builder;
  for (const TransferIdentifiers& row : kRows) {
    builder.Constant(row.start, 1, u"S").Constant(row.end, 2, u"E");
  }
  const auto config = builder.Build();
  config->CTEActivo(emNoParamDatoConstante);
  config->DATOActivo(emParamRingHoras);
  for (const int type : {-1, 0, 1, 6, 7, 1000}) {
    EXPECT_EQ(ObtAtributos(*config, static_cast<emTiposLlamadas>(type), u"SE"), emSinAtributo)
        << type;
    EXPECT_EQ(config->CTEActivo(), emNoParamDatoConstante);
  }
  EXPECT_EQ(config->DATOActivo(), emParamRingHoras);
}

TEST(ObtAtributos, IdentifierAtABadPlaceOverflows) {
  const auto config =
      ConfigBuilder().Constant(emDatoCteIdentEntranteFinTransferida, 255, u"E").Build();
  EXPECT_THROW(ObtAtributos(*config, emLlamadaEntrante, u"E"), OverflowError);
}

}  // namespace
}  // namespace conmuta
