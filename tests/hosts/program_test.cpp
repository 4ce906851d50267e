// The program around its commands: arguments, help, completion, exit codes.
#include <gtest/gtest.h>

#include <set>

#include "conmuta/command.h"
#include "conmuta/help.h"
#include "conmuta/user_error.h"
#include "support/program_run.h"

namespace conmuta::host {
namespace {

using test::ProgramRun;
using test::RunConmuta;

constexpr Operand kOperands[] = {{"UNO", "", 1, 1}, {"MAS", "", 1, kAnyNumber}};
constexpr Option kOptions[] = {{"--modo", "-m", "MODO", "", "bueno malo"},
                               {"--si", "-s", "", "", ""},
                               {"--n", "", "N", "", ""}};
const Command kProbe = {"prueba", "", "", kOperands, kOptions, {}, nullptr};

std::string Complaint(const std::vector<std::string>& words) {
  try {
    const Arguments arguments(kProbe, words);
    return "";
  } catch (const UserError& error) {
    const std::string text = error.what();
    return text.substr(0, text.find('\n'));
  }
}

TEST(Arguments, OptionsMayStandAnywhere) {
  const Arguments arguments(kProbe, {"a", "-m", "malo", "b", "--si", "--n=7", "c"});
  EXPECT_EQ(arguments.operands(), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(arguments.Value("--modo", "bueno"), "malo");
  EXPECT_TRUE(arguments.Has("--si"));
  EXPECT_EQ(arguments.Number("--n", 1, 9, 3), 7U);
  const Arguments none(kProbe, {"a", "b"});
  EXPECT_EQ(none.Value("--modo", "bueno"), "bueno");
  EXPECT_FALSE(none.Has("--si"));
  EXPECT_EQ(none.Number("--n", 1, 9, 3), 3U);
}

TEST(Arguments, NamesOfFilesAreTakenAsTheyAre) {
  const std::vector<std::string> names = {"-", "[a,b]", "/s", "a b", "", "x=y", "ñ"};
  EXPECT_EQ(Arguments(kProbe, names).operands(), names);
  EXPECT_EQ(Arguments(kProbe, {"a", "--", "-m", "--nada", "--"}).operands(),
            (std::vector<std::string>{"a", "-m", "--nada", "--"}));
}

TEST(Arguments, WhatTheCommandDoesNotTakeIsNamed) {
  EXPECT_EQ(Complaint({"a", "b"}), "");
  EXPECT_EQ(Complaint({}), "Falta UNO.");
  EXPECT_EQ(Complaint({"a"}), "Falta MAS.");
  EXPECT_EQ(Complaint({"a", "b", "--nada"}), "No hay tal opción: --nada");
  EXPECT_EQ(Complaint({"a", "b", "-x"}), "No hay tal opción: -x");
  EXPECT_EQ(Complaint({"a", "b", "-m", "feo"}),
            "--modo: «feo» no es uno de estos valores: bueno, malo");
  EXPECT_EQ(Complaint({"a", "b", "-m"}), "A la opción --modo le falta su valor, o le sobra.");
  EXPECT_EQ(Complaint({"a", "b", "-m", "malo", "-m", "malo"}),
            "A la opción --modo le falta su valor, o le sobra.");
}

TEST(Arguments, NumbersHaveTheirRange) {
  for (const std::string number : {"0", "10", "x", "", "1x", "99999999999999999999"}) {
    const Arguments arguments(kProbe, {"a", "b", "--n", number});
    EXPECT_THROW(arguments.Number("--n", 1, 9, 3), UserError) << number;
  }
}

TEST(Program, EveryCommandHelpsWithExamples) {
  std::set<std::string_view> names;
  const std::string help = RunConmuta({"--help"}).out;
  for (const Command* command : Commands()) {
    EXPECT_TRUE(names.insert(command->name).second) << command->name;
    EXPECT_NE(help.find("\n  " + std::string(command->name) + " "), std::string::npos);
    const ProgramRun run = RunConmuta({std::string(command->name), "--help"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    ASSERT_FALSE(command->examples.empty()) << command->name;
    for (const Example& example : command->examples) {
      EXPECT_NE(run.out.find(example.line), std::string::npos) << example.line;
    }
    std::set<std::string_view> options;
    for (const Option& option : command->options) {
      EXPECT_TRUE(options.insert(option.name).second) << option.name;
      EXPECT_NE(run.out.find(Heading(option)), std::string::npos) << option.name;
      EXPECT_TRUE(option.help.ends_with(".")) << option.help;
    }
    EXPECT_NE(run.out.find("Termina con 0;"), std::string::npos);
  }
}

TEST(Program, WhatIsNoCommandIsSaid) {
  EXPECT_EQ(RunConmuta({}).code, 2);
  const ProgramRun run = RunConmuta({"tra\x1B[31mduce"});
  EXPECT_EQ(run.code, 2);
  EXPECT_EQ(run.err, "No hay tal orden: tra\\x1B[31mduce\nconmuta --help las nombra.\n");
  EXPECT_TRUE(RunConmuta({"--version"}).out.starts_with("conmuta 1."));
}

TEST(Program, OutputThatCannotBeWrittenIsNoSuccess) {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  out.setstate(std::ios::badbit);
  Console console{in, out, err};
  EXPECT_EQ(RunProgram({"catalogo"}, console), 2);
  EXPECT_EQ(err.str(), "No se puede escribir la salida.\n");
}

TEST(Completion, KnowsEveryCommandAndOption) {
  const std::string bash = RunConmuta({"completa", "bash"}).out;
  const std::string man = RunConmuta({"completa", "man"}).out;
  EXPECT_NE(bash, man);
  for (const Command* command : Commands()) {
    EXPECT_NE(bash.find("\n    " + std::string(command->name) + ")\n"), std::string::npos);
    EXPECT_NE(man.find(".SS conmuta " + std::string(command->name)), std::string::npos);
    for (const Option& option : command->options) {
      EXPECT_NE(bash.find(option.name), std::string::npos) << option.name;
    }
  }
}

}  // namespace
}  // namespace conmuta::host
