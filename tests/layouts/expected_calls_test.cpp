#include "layouts/expected_calls.h"

#include <gtest/gtest.h>

namespace conmuta::layouts {
namespace {

const std::string kHeading =
    "linea | tipo | transf. | fecha | hora | duracion | ring | emisor | receptor | telefono | "
    "ext.transf. | cuenta\n";

Capture LinesNumbered(std::initializer_list<int> numbers) {
  Capture capture;
  for (const int number : numbers) capture.lines.push_back({number, u"x"});
  return capture;
}

std::vector<Text> Mistakes(const std::string& rows, const Capture& capture) {
  const auto reading = ReadExpected(rows, capture);
  EXPECT_EQ(reading.rows.has_value(), reading.mistakes.empty());
  std::vector<Text> sentences;
  for (const Mistake& mistake : reading.mistakes) sentences.push_back(Sentence(mistake));
  return sentences;
}

TEST(ExpectedCalls, RowsAreValues) {
  const auto rows = ReadExpected(kHeading +
                                     "6 | Entrante | Inicio | 14/01/AAAA | 09:15:07 | 20 | 12 | 01 "
                                     "| 1210 | 5550177 | 77 | 431211\n"
                                     "  7|Inter-troncal|-|hoy|23:59:59|?|0|||||\n"
                                     "8 | Saliente | Fin | 31/12/2031 | 00:00:00 | 0 | 0 | \" a|\" "
                                     "| \"\"\"\" | | | \"  \"",
                                 LinesNumbered({6, 7, 8}))
                        .rows;
  ASSERT_TRUE(rows);
  ASSERT_EQ(rows->size(), 3u);
  ExpectedCall first;
  first.type = emLlamadaEntrante;
  first.attribute = emAtributoIniTransferida;
  first.month = 1;
  first.day = 14;
  first.hours = 9;
  first.minutes = 15;
  first.seconds = 7;
  first.duration = 20;
  first.ring = 12;
  first.caller = u"01";
  first.callee = u"1210";
  first.phone = u"5550177";
  first.transferred_to = u"77";
  first.account = u"431211";
  EXPECT_EQ(rows->at(0).outcome.call, first);
  EXPECT_EQ(rows->at(1).line, 7);
  EXPECT_EQ(rows->at(1).outcome.call->type, emLlamadaInterTroncal);
  EXPECT_EQ(rows->at(1).outcome.call->duration, std::nullopt);
  EXPECT_EQ(rows->at(2).outcome.call->year, 2031);
  EXPECT_EQ(rows->at(2).outcome.call->caller, u" a|");
  EXPECT_EQ(rows->at(2).outcome.call->callee, u"\"");
  EXPECT_EQ(rows->at(2).outcome.call->account, u"  ");
}

TEST(ExpectedCalls, DatesMeanThePresentYearOrDay) {
  const auto rows = ReadExpected(kHeading +
                                     "1|Saliente|-|14/01/AAAA|00:00:00|0|0||||| \n"
                                     "2|Saliente|-|hoy|00:00:00|0|0||||| \n"
                                     "3|Saliente|-|02/03/2019|00:00:00|0|0||||| \n",
                                 LinesNumbered({1, 2, 3}))
                        .rows;
  ASSERT_TRUE(rows);
  const auto date = [&](std::size_t row) {
    const ExpectedCall call = rows->at(row).outcome.call->On({2026, 11, 21});
    return std::array{call.day, call.month, call.year};
  };
  EXPECT_EQ(date(0), (std::array{14, 1, 2026}));
  EXPECT_EQ(date(1), (std::array{21, 11, 2026}));
  EXPECT_EQ(date(2), (std::array{2, 3, 2019}));
}

TEST(ExpectedCalls, EveryReasonAndErrorHasItsWords) {
  const std::pair<const char*, Outcome> words[] = {
      {"vacia", {{}, NoCall::kEmptyLine, {}}},
      {"sin digitos", {{}, NoCall::kNoDigits, {}}},
      {"tipo desconocido", {{}, NoCall::kUnknownType, {}}},
      {"sin emisor", {{}, NoCall::kNoCaller, {}}},
      {"sin receptor", {{}, NoCall::kNoCallee, {}}},
      {"sin fecha", {{}, NoCall::kNoDate, {}}},
      {"sin numero", {{}, NoCall::kNoNumber, {}}},
      {"codigo de cuenta", {{}, NoCall::kAccountCode, {}}},
      {"lista llena", {{}, NoCall::kListFull, {}}},
      {"registro desconocido", {{}, NoCall::kUnknownRecord, {}}},
      {"fuera de bloque", {{}, NoCall::kOutsideBlock, {}}},
      {"empieza bloque", {{}, NoCall::kBlockBegins, {}}},
      {"parte de bloque", {{}, NoCall::kPartOfBlock, {}}},
      {"transferencia no encontrada", {{}, NoCall::kTransferNotFound, {}}},
      {"error 6", {{}, NoCall::kNone, LineError::kOverflow}},
      {"error 5", {{}, NoCall::kNone, LineError::kInvalidArgument}},
  };
  for (const auto& [word, outcome] : words) {
    const auto rows = ReadExpected(kHeading + "1 | " + word + "\n", LinesNumbered({1})).rows;
    ASSERT_TRUE(rows) << word;
    EXPECT_EQ(rows->at(0).outcome, outcome) << word;
    EXPECT_EQ(RowText(1, outcome), u"1 | " + Text(word, word + std::string(word).size()));
  }
}

TEST(ExpectedCalls, ARowIsWrittenAsItIsRead) {
  const std::string row =
      "6 | Entrante | En curso | 14/01/AAAA | 09:15:07 | ? | 12 | \" 1\" | \"a\"\"b\" | \"|\" |  "
      "| ";
  const auto rows = ReadExpected(kHeading + row, LinesNumbered({6})).rows;
  ASSERT_TRUE(rows);
  EXPECT_EQ(RowText(6, rows->at(0).outcome), Text(row.begin(), row.end()));
}

TEST(ExpectedCalls, EveryLineHasItsRowAndEveryRowItsLine) {
  EXPECT_EQ(Mistakes(kHeading + "7 | vacia\n9 | vacia\n", LinesNumbered({7, 8})),
            (std::vector<Text>{
                u"expected.txt:1: línea 8: está en la captura y no tiene renglón",
                u"expected.txt:3: línea 9: la captura no la tiene",
            }));
}

TEST(ExpectedCalls, MistakesAreReportedWithTheirLines) {
  EXPECT_EQ(Mistakes("linea | tipo\n"
                     "x | vacia\n"
                     "7 | nada\n"
                     "8 | vacia\n"
                     "8 | vacia\n"
                     "9 | \"a\n"
                     "9 | \"a\" b\n"
                     "9 | a | b\n"
                     "9 | Entra | Ini | 1/1/2019 | 9:15 | x | -1 | | | | |\n"
                     "9 | Entrante | - | 32/01/AAAA | 09:15:0x | 1 | 1 | | | | |\n"
                     "\n",
                     LinesNumbered({7})),
            (std::vector<Text>{
                u"expected.txt:1: el primer renglón no nombra las doce columnas",
                u"expected.txt:2: linea: no es un número de línea",
                u"expected.txt:3: «nada» no es un motivo",
                u"expected.txt:5: línea 8: ya está en el renglón 4",
                u"expected.txt:6: las comillas no cierran",
                u"expected.txt:7: las comillas no cierran",
                u"expected.txt:8: tiene 3 campos (2 o 12)",
                u"expected.txt:9: tipo: «Entra» no es un tipo de llamada",
                u"expected.txt:9: transf.: «Ini» no es -, Inicio, En curso ni Fin",
                u"expected.txt:9: fecha: «1/1/2019» no es dd/mm/aaaa ni hoy",
                u"expected.txt:9: hora: «9:15» no es hh:mm:ss",
                u"expected.txt:9: duracion: «x» no son segundos ni ?",
                u"expected.txt:9: ring: «-1» no son segundos",
                u"expected.txt:10: fecha: «32/01/AAAA» no es dd/mm/aaaa ni hoy",
                u"expected.txt:10: hora: «09:15:0x» no es hh:mm:ss",
                u"expected.txt:11: linea: no es un número de línea",
            }));
}

}  // namespace
}  // namespace conmuta::layouts
