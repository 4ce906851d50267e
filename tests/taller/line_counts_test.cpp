#include "taller/line_counts.h"

#include <gtest/gtest.h>

#include "platform/unicode.h"

namespace conmuta::taller {
namespace {

LineCounts Counts(int out, int in, int without, int errors) {
  LineCounts counts;
  for (int i = 0; i < out; ++i) counts.Add(LineKind::Call(emLlamadaSaliente));
  for (int i = 0; i < in; ++i) counts.Add(LineKind::Call(emLlamadaEntrante));
  for (int i = 0; i < without; ++i) counts.Add(LineKind::None(NoCall::kNoDigits));
  for (int i = 0; i < errors; ++i) counts.Add(LineKind::Error(LineError::kOverflow));
  return counts;
}

using Figures = std::vector<std::pair<Text, Counter>>;

Figures FiguresOf(const LineCounts& counts) {
  const LineCounts::Line line = counts.WithFigures();
  EXPECT_EQ(line.sentence, FromUtf8(counts.Sentence()));
  Figures figures;
  for (const LineCounts::Figure& figure : line.figures) {
    figures.emplace_back(line.sentence.substr(figure.begin, figure.end - figure.begin),
                         figure.counter);
  }
  return figures;
}

TEST(LineCounts, EachFigureOfTheSentenceLeadsToItsLines) {
  EXPECT_EQ(FiguresOf(Counts(15, 1, 24, 1)),
            (Figures{{u"16 llamadas", Counter::Calls()},
                     {u"15 salientes", Counter::Of(LineKind::Call(emLlamadaSaliente))},
                     {u"1 entrante", Counter::Of(LineKind::Call(emLlamadaEntrante))},
                     {u"24 sin llamada", Counter::NoCalls()},
                     {u"1 error", Counter::Errors()}}));
  EXPECT_EQ(FiguresOf(Counts(0, 0, 0, 0)), (Figures{{u"0 llamadas", Counter::Calls()},
                                                    {u"0 sin llamada", Counter::NoCalls()},
                                                    {u"0 errores", Counter::Errors()}}));
}

TEST(LineCounts, ACallWithoutALineOfItsOwnIsACallAndNoLine) {
  LineCounts counts = Counts(1, 0, 2, 0);
  counts.SetEnd(LineKind::Call(emLlamadaEntrante));
  EXPECT_EQ(counts.Sentence(),
            "3 líneas: 2 llamadas (1 saliente, 1 entrante), 2 sin llamada, 0 errores");
  EXPECT_EQ(FiguresOf(counts)[2].first, u"1 entrante");
  counts.SetEnd(std::nullopt);
  EXPECT_EQ(counts, Counts(1, 0, 2, 0));
}

}  // namespace
}  // namespace conmuta::taller
