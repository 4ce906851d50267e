// Shows what the switches of the catalogue prove.
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>

#include "layouts/proof/damage_report.h"
#include "layouts/proof/family.h"
#include "layouts/proof/matrix.h"
#include "layouts/proof/page.h"
#include "layouts/proof/tally.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

constexpr int kDifferent = 1;
constexpr int kUsage = 2;

std::string Utf8(TextView text) {
  return ToUtf8(text).value_or("?");
}

int ShowTallies(const std::vector<Family>& families) {
  std::vector<Tally> tallies;
  int status = 0;
  for (const Family& family : families) {
    const Tally& tally = tallies.emplace_back(TallyOf(family));
    for (const Difference& difference : tally.differences) {
      std::fprintf(stderr, "%s\n", Sentence(family.name, difference).c_str());
      status = kDifferent;
    }
  }
  std::fputs(TallyTable(families, tallies).c_str(), stdout);
  return status;
}

int ShowMatrix(const std::vector<Family>& families) {
  const Matrix matrix = MatrixOf(families);
  int status = 0;
  for (std::size_t i = 0; i < families.size(); ++i) {
    for (const std::size_t rival : Rivals(matrix, i)) {
      std::fprintf(stderr, "%s explica la captura de %s tan bien como la suya\n",
                   families[rival].name.c_str(), families[i].name.c_str());
      status = kDifferent;
    }
  }
  std::fputs(MatrixTable(families, matrix).c_str(), stdout);
  return status;
}

// With a dot for each control byte, so that columns stay where they are.
Text Visible(Text line) {
  std::replace_if(
      line.begin(), line.end(), [](char16_t c) { return c < u' '; }, u'.');
  return line;
}

void ShowWrongCalls(const Family& family, const DamageHarm& harm) {
  if (harm.harm != Harm::kWrong) return;
  std::printf("%s: línea %d, %s\n  %s\n", family.name.c_str(), harm.line,
              Utf8(WordOf(harm.damaged.damage)).c_str(), Utf8(Visible(harm.damaged.text)).c_str());
  for (const ExpectedCall& call : harm.found) {
    Outcome outcome;
    outcome.call = call;
    std::printf("  %s\n", Utf8(RowText(harm.line, outcome)).c_str());
  }
}

std::vector<DamageReport> DamageReportsOf(const std::vector<Family>& families) {
  std::vector<DamageReport> reports;
  for (const Family& family : families) reports.push_back(DamageReportOf(family));
  return reports;
}

int ShowDamage(const std::vector<Family>& families) {
  std::fputs(DamageTable(families, DamageReportsOf(families)).c_str(), stdout);
  return 0;
}

int ShowPage(const std::vector<Family>& families) {
  std::fputs(CataloguePage(families, DamageReportsOf(families)).c_str(), stdout);
  return 0;
}

int ShowWrong(const std::vector<Family>& families) {
  for (const Family& family : families) {
    static_cast<void>(
        DamageReportOf(family, [&](const DamageHarm& harm) { ShowWrongCalls(family, harm); }));
  }
  return 0;
}

struct Mode {
  const char* option;
  int (*show)(const std::vector<Family>& families);
};
constexpr Mode kModes[] = {{"--matrix", ShowMatrix},
                           {"--damage", ShowDamage},
                           {"--wrong", ShowWrong},
                           {"--page", ShowPage}};

const Mode* FindMode(const std::string& option) {
  const auto* const mode = std::find_if(std::begin(kModes), std::end(kModes),
                                        [&](const Mode& row) { return option == row.option; });
  return mode != std::end(kModes) ? mode : nullptr;
}

int Main(std::vector<std::string> arguments) {
  auto show = ShowTallies;
  if (!arguments.empty() && arguments[0].starts_with("-")) {
    const Mode* mode = FindMode(arguments[0]);
    if (mode == nullptr) arguments.clear();
    if (mode != nullptr) {
      show = mode->show;
      arguments.erase(arguments.begin());
    }
  }
  if (arguments.empty()) {
    std::fputs(
        "Usage: prove_switches [--matrix|--damage|--wrong|--page] FOLDER...\n"
        "Translates the capture of each switch folder by its layout: a line a family, and on\n"
        "stderr where something else comes out than expected.txt says. Ends with 0, or 1 after\n"
        "differences and mistakes.\n"
        "  --matrix  each layout over each capture: calls/plausible ones; 1 when a layout does "
        "not\n"
        "            explain its own capture best\n"
        "  --damage  what comes of damaged lines, in parts of a thousand\n"
        "  --wrong   the damaged lines that become somebody else's call, and that call\n"
        "  --page    docs/switches.md\n",
        stderr);
    return kUsage;
  }
  const Families read = ReadFamilies({arguments.begin(), arguments.end()});
  for (const Mistake& mistake : read.mistakes) {
    std::fprintf(stderr, "%s\n", Utf8(Sentence(mistake)).c_str());
  }
  const int status = show(read.families);
  return read.mistakes.empty() ? status : kDifferent;
}

}  // namespace
}  // namespace conmuta::layouts

int main(int argc, char** argv) {
  try {
    return conmuta::layouts::Main({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
