#include "layouts/capture.h"

#include <gtest/gtest.h>

#include "layouts/host_line.h"

namespace conmuta::layouts {
namespace {

const std::string kCaptureHead =
    "# conmutador: ACME X1\n"
    "# fecha: 2019-01-16\n"
    "# velocidad: 9600\n"
    "# trama: 8N1\n"
    "# fuente: lines 6 to 8: https://example.com/a\n"
    "# fuente: the rest: made up\n";

std::vector<Text> Sentences(const std::vector<Mistake>& mistakes) {
  std::vector<Text> sentences;
  for (const Mistake& mistake : mistakes) sentences.push_back(Sentence(mistake));
  return sentences;
}

TEST(CaptureReading, HeadTellsHowItWasTaken) {
  const auto capture = ReadCapture(kCaptureHead + "a\n").capture;
  ASSERT_TRUE(capture);
  EXPECT_EQ(capture->switch_name, u"ACME X1");
  EXPECT_EQ(capture->date.year, 2019);
  EXPECT_EQ(capture->date.month, 1);
  EXPECT_EQ(capture->date.day, 16);
  EXPECT_EQ(capture->speed, 9600);
  EXPECT_EQ(capture->framing, u"8N1");
  EXPECT_EQ(capture->sources,
            (std::vector<Text>{u"lines 6 to 8: https://example.com/a", u"the rest: made up"}));
}

TEST(CaptureReading, LinesHaveTheirNumbersInTheFile) {
  const auto capture = ReadCapture(kCaptureHead + "\nuno\r\n# dos\n\xC3\xB1").capture;
  ASSERT_TRUE(capture);
  ASSERT_EQ(capture->lines.size(), 4u);
  EXPECT_EQ(capture->lines[0].number, 7);
  EXPECT_EQ(capture->lines[0].text, u"");
  EXPECT_EQ(capture->lines[1].text, u"uno");
  EXPECT_EQ(capture->lines[2].text, u"# dos");  // the head has ended
  EXPECT_EQ(capture->lines[3].number, 10);
  EXPECT_EQ(capture->lines[3].text, u"ñ");
}

TEST(CaptureReading, MistakesOfTheHeadAreReportedWithTheirLines) {
  const auto reading = ReadCapture(
      "#conmutador: x\n# fecha: 2019-02-29\n# velocidad: 0\n# trama: 9N1\n# trama: 8N1\n"
      "# fuentes: x\n# fuente:  \n1\n");
  EXPECT_FALSE(reading.capture);
  EXPECT_EQ(Sentences(reading.mistakes),
            (std::vector<Text>{
                u"capture.txt:1: no es «# clave: valor»",
                u"capture.txt:1: conmutador: falta",
                u"capture.txt:2: fecha: «2019-02-29» no es una fecha como 2019-01-16",
                u"capture.txt:3: velocidad: «0» no es una velocidad en bits por segundo",
                u"capture.txt:4: trama: «9N1» no es una trama como 8N1",
                u"capture.txt:5: trama: se da dos veces",
                u"capture.txt:6: no se conoce «fuentes»; ¿quiso decir «fuente»? (conmutador, "
                u"fecha, velocidad, trama, fuente)",
                u"capture.txt:7: fuente: está vacío",
            }));
}

TEST(CaptureReading, OnlyDaysOfTheCalendarAreDates) {
  for (const std::string date : {"2019-13-01", "2019-00-10", "2019-01-32", "2019-04-31", "19-01-16",
                                 "2019/01/16", "2019-1-016", "1899-12-31", "x019-01-16"}) {
    const std::string head =
        "# conmutador: x\n# fecha: " + date + "\n# velocidad: 1200\n# trama: 7E1\n# fuente: x\n";
    EXPECT_EQ(ReadCapture(head).mistakes.size(), 1u) << date;
  }
}

TEST(HostLines, LinesEndWithLfInWhateverPiecesTheyCome) {
  const std::string bytes = "uno\r\n\ndos\ntres";
  for (std::size_t size = 1; size <= bytes.size(); ++size) {
    HostLines lines;
    std::vector<std::string> found;
    for (std::size_t at = 0; at < bytes.size(); at += size) {
      lines.Take(bytes.substr(at, size), [&](std::string_view line) { found.emplace_back(line); });
    }
    EXPECT_EQ(found, (std::vector<std::string>{"uno", "", "dos"})) << size;
    EXPECT_EQ(lines.rest(), "tres") << size;
  }
}

TEST(HostLines, ALineWithoutEndIsCutInWhateverPiecesItComes) {
  const std::string endless(3 * HostLines::kMost, 'x');
  for (const std::size_t piece : {std::size_t{1000}, 4 * HostLines::kMost}) {
    std::vector<std::string> found;
    HostLines lines;
    const std::string bytes = endless + "\nnext\n" + endless;
    for (std::size_t i = 0; i < bytes.size(); i += piece) {
      lines.Take(std::string_view(bytes).substr(i, piece),
                 [&](std::string_view line) { found.emplace_back(line); });
    }
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].size(), HostLines::kMost);
    EXPECT_EQ(found[1], "next");
    EXPECT_EQ(lines.rest().size(), HostLines::kMost);
  }
}

TEST(HostLines, BytesBelowABlankAndDelAreNotOfTheLine) {
  std::string bytes = "a";
  for (char c = 0; c < ' '; ++c) {
    if (c != '\n') bytes += c;
  }
  HostLines lines;
  lines.Take(bytes + " \x7F\xF1", [](std::string_view) { FAIL(); });
  EXPECT_EQ(lines.rest(), "a \xF1");
}

}  // namespace
}  // namespace conmuta::layouts
