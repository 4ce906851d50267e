// conmuta traduce: which lines become which rows, and what is said of the rest.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "layouts/capture.h"
#include "layouts/expected_calls.h"
#include "support/approved.h"
#include "support/program_run.h"
#include "support/source_files.h"
#include "support/temporary_folder.h"

namespace conmuta::host {
namespace {

using test::CaptureOf;
using test::ProgramRun;
using test::ReadWhole;
using test::RunConmuta;
using Json = nlohmann::json;

// A line of the Panasonic that is a call, and one that is none.
const std::string kCall =
    "01/14/19 09:15AM 1210  01 <I>5550177                0'12 00:00'20 431211     TR";
const std::string kNoCall = "  Date    Time    Ext  CO          Dial Number     Ring  Duration";

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

TEST(Traduce, RowsOfEveryFormatAreAsApproved) {
  for (const std::string name : {"panasonic-kx", "nortel-norstar", "altigen-out"}) {
    for (const std::string format : {"tabla", "csv", "json"}) {
      // The capture comes by the standard input: no path of this machine is in a row.
      const ProgramRun run =
          RunConmuta({"traduce", "-t", "-f", format, "--hoy", "2019-01-17", name, "-"},
                     ReadWhole(CaptureOf(name)));
      EXPECT_EQ(run.out, test::Approved(name + "." + format, run.out));
      EXPECT_EQ(run.err, test::Approved(name + ".resumen", run.err));
    }
  }
}

// The rows of a switch's own capture are those that its expected.txt wants.
TEST(Traduce, JsonRowsAreTheExpectedCallsOfEverySwitch) {
  int calls = 0;
  for (const auto& folder : test::Entries(CONMUTA_SOURCES "/switches")) {
    if (!std::filesystem::is_directory(folder)) continue;
    const auto capture = layouts::ReadCapture(ReadWhole(folder / "capture.txt"));
    ASSERT_TRUE(capture.capture) << folder;
    const auto expected =
        layouts::ReadExpected(ReadWhole(folder / "expected.txt"), *capture.capture);
    ASSERT_TRUE(expected.rows) << folder;
    const ProgramRun run =
        RunConmuta({"traduce", "-q", "-t", "-f", "json", "--sin-alternativas", "--hoy",
                    "2026-11-21", folder.string(), (folder / "capture.txt").string()});
    const auto rows = LinesOf(run.out);
    ASSERT_GE(rows.size(), expected.rows->size()) << folder;
    for (std::size_t i = 0; i < expected.rows->size(); ++i) {
      const auto& [line, outcome] = expected.rows->at(i);
      const Json row = Json::parse(rows[i]);
      EXPECT_EQ(row["linea"], line);
      EXPECT_EQ(row["conmutador"], folder.filename().string());
      EXPECT_EQ(row.contains("tipo"), outcome.call.has_value()) << rows[i];
      if (!outcome.call || !row.contains("tipo")) {
        EXPECT_TRUE(row["motivo"].is_string()) << rows[i];
        continue;
      }
      ++calls;
      const auto call = outcome.call->On({2026, 11, 21});
      EXPECT_EQ(row["emisor"], std::string(call.caller.begin(), call.caller.end())) << rows[i];
      EXPECT_EQ(row["telefono"], std::string(call.phone.begin(), call.phone.end())) << rows[i];
      EXPECT_EQ(row["duracion_s"], call.duration ? Json(*call.duration) : Json()) << rows[i];
      EXPECT_EQ(row["timbre_s"], call.ring) << rows[i];
      char date[32];
      std::snprintf(date, sizeof date, "%04d-%02d-%02d", call.year, call.month, call.day);
      EXPECT_EQ(row["fecha"], date) << rows[i];
    }
  }
  EXPECT_GT(calls, 800);
}

TEST(Traduce, CsvQuotesWhatWouldEndAField) {
  const std::string layout =
      "marca = \"A\"\nmodelo = \"B\"\ncomentarios = \"\"\nseparador = \"\\r\\n\"\n"
      "caso = \"Estandar\"\n[datos]\nExtensionSaliente = { pos = 1, tam = 3, tipo = \"cadena\" }\n"
      "TroncalSaliente = { pos = 4, tam = 3 }\nFechaDia = { pos = 4, tam = 1 }\n"
      "FechaMes = { pos = 4, tam = 1 }\nFechaAnio = { pos = 4, tam = 1 }\n"
      "CodigoCuenta = { pos = 8, tam = 9, tipo = \"cadena\" }\n";
  test::TemporaryFolder folder;
  std::ofstream(folder.path() / "x.toml", std::ios::binary) << layout;
  const std::string file = (folder.path() / "x.toml").string();
  const std::string line = "a,b001 \"c\"\xC3\xB1\xC2\x9B\n";
  const ProgramRun raw =
      RunConmuta({"traduce", "-q", "-f", "csv", "--hoy", "2001-01-01", file, "-"}, line);
  EXPECT_NE(raw.out.find(",\"a,b\",001,"), std::string::npos) << raw.out;
  EXPECT_NE(raw.out.find(",\"\"\"c\"\"\xC3\xB1\xC2\x9B\","), std::string::npos) << raw.out;
  EXPECT_TRUE(raw.out.ends_with("\r\n"));
  // A terminal would obey the control character.
  const ProgramRun shown = RunConmuta(
      {"traduce", "-q", "-f", "csv", "--hoy", "2001-01-01", file, "-"}, line, {.out = true});
  EXPECT_NE(shown.out.find("\xC3\xB1\\x9B\""), std::string::npos) << shown.out;
  for (const std::string format : {"tabla", "json"}) {
    const ProgramRun run = RunConmuta({"traduce", "-q", "-f", format, file, "-"}, line);
    EXPECT_EQ(run.out.find('\x9B'), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("\xC3\xB1"), std::string::npos) << run.out;
  }
}

TEST(Traduce, BytesThatAreNoUtf8AreWindows1252) {
  std::string line = kCall;
  line[66] = '\xD1';
  const ProgramRun run = RunConmuta({"explica", "panasonic-kx", "--json", "-"}, line + "\n");
  EXPECT_NE(run.out.find("\\u00d1"), std::string::npos) << run.out;
}

TEST(Traduce, ControlBytesStandInNoColumn) {
  std::string dirty;
  for (const char c : kCall) (dirty += '\x11') += c;
  const ProgramRun clean = RunConmuta({"traduce", "-f", "csv", "panasonic-kx", "-"}, kCall + "\n");
  EXPECT_EQ(RunConmuta({"traduce", "-f", "csv", "panasonic-kx", "-"}, dirty + "\r\n").out,
            clean.out);
  EXPECT_EQ(RunConmuta({"traduce", "-f", "csv", "panasonic-kx", "-"}, dirty).out, clean.out);
}

TEST(Traduce, AMarkInFrontOfTheFirstLineStandsInNoColumn) {
  for (const char* mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    EXPECT_EQ(RunConmuta({"traduce", "-f", "csv", "panasonic-kx", "-"}, mark + kCall).out,
              RunConmuta({"traduce", "-f", "csv", "panasonic-kx", "-"}, kCall).out);
    EXPECT_EQ(RunConmuta({"traduce", "-q", "panasonic-kx", "-"},
                         std::string(mark) + "# fuente: 1 2 3\n" + kNoCall)
                  .out,
              RunConmuta({"traduce", "-q", "panasonic-kx", "-"}, kNoCall).out);
  }
}

TEST(Traduce, OnlyAHeadThatBeginsTheCaptureIsPassedOver) {
  const ProgramRun run = RunConmuta({"traduce", "-t", "-f", "json", "panasonic-kx", "-"},
                                    "# fecha: 2019-01-14\n# x: y\n" + kCall + "\n# z: 1\n");
  const auto rows = LinesOf(run.out);
  ASSERT_EQ(rows.size(), 2U) << run.out;
  EXPECT_EQ(Json::parse(rows[0])["linea"], 3);
  EXPECT_EQ(Json::parse(rows[1])["linea"], 4);
  EXPECT_TRUE(run.err.starts_with("2 líneas: 1 llamada (1 entrante), 1 sin llamada, 0 errores\n"))
      << run.err;
}

class TodayOfRows : public testing::Test {
 protected:
  std::string YearWith(const std::vector<std::string>& options, const std::string& file,
                       const std::string& input = {}) {
    std::vector<std::string> arguments = {"traduce", "-q", "-f", "json", "panasonic-kx", file};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const ProgramRun run = RunConmuta(arguments, input);
    return run.out.empty() ? run.err : Json::parse(run.out)["fecha"].get<std::string>();
  }
};

TEST_F(TodayOfRows, IsTheGivenDay) {
  EXPECT_EQ(YearWith({"--hoy", "2019-06-30"}, "-", kCall), "2019-01-14");
  EXPECT_EQ(YearWith({"--hoy", "2021-01-01"}, "-", kCall), "2021-01-14");
}

TEST_F(TodayOfRows, IsTheHeadsOrTheFilesOwn) {
  test::TemporaryFolder folder;
  const auto file = folder.path() / "captura.txt";
  std::ofstream(file, std::ios::binary) << kCall;
  // Noon of 30 June 2020, wherever this runs.
  std::filesystem::last_write_time(file, std::chrono::file_clock::from_sys(std::chrono::sys_seconds(
                                             std::chrono::seconds(1593518400))));
  EXPECT_EQ(YearWith({"--hoy", "archivo"}, file.string()), "2020-01-14");
  std::ofstream(file, std::ios::binary) << "# fecha: 2019-02-03\n" << kCall;
  EXPECT_EQ(YearWith({"--hoy", "archivo"}, file.string()), "2019-01-14");
  EXPECT_EQ(YearWith({"--hoy", "archivo"}, "-", "# fecha: 2022-02-03\n" + kCall), "2022-01-14");
  EXPECT_EQ(YearWith({"--hoy", "archivo"}, "-", kCall),
            "--hoy archivo: la entrada estándar no tiene fecha; dé el día, como 2019-01-16\n");
}

TEST_F(TodayOfRows, CannotBeWhatIsNoDay) {
  for (const std::string day : {"2019-02-29", "14/01/2019", "hoy", ""}) {
    const ProgramRun run = RunConmuta({"traduce", "--hoy", day, "panasonic-kx", "-"}, kCall);
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.err, "--hoy: «" + day + "» no es una fecha como 2019-01-16 ni «archivo»\n");
    EXPECT_EQ(run.out, "");
  }
}

TEST(Traduce, BeginningOfACallIsBeforeItsEnd) {
  const auto row = [](const std::string& line) {
    return Json::parse(
        RunConmuta({"traduce", "-q", "-f", "json", "--hoy", "2019-01-01", "panasonic-kx", "-"},
                   line)
            .out);
  };
  // It rang 12 seconds and lasted 20.
  EXPECT_EQ(row(kCall)["inicio"], "2019-01-14T09:14:28");
  // Over midnight, and the new year.
  std::string night = kCall;
  night.replace(0, 16, "01/01/19 01:00AM");
  night.replace(57, 8, "02:00'00");
  EXPECT_EQ(row(night)["inicio"], "2018-12-31T22:59:48");
  // No day of the calendar.
  std::string no_day = kCall;
  no_day.replace(0, 5, "02/30");
  EXPECT_EQ(row(no_day)["fecha"], "2019-02-30");
  EXPECT_TRUE(row(no_day)["inicio"].is_null());
}

TEST(Traduce, LinesWithErrorsEndItWithOne) {
  const std::string capture = CaptureOf("nortel-norstar");
  const ProgramRun run = RunConmuta({"traduce", "nortel-norstar", capture});
  EXPECT_EQ(run.code, 1);
  EXPECT_NE(run.err.find(", 1 error\n"), std::string::npos) << run.err;
  EXPECT_EQ(RunConmuta({"traduce", "panasonic-kx", CaptureOf("panasonic-kx")}).code, 0);
}

TEST(Traduce, LastBlockOfNorstarComesOut) {
  const std::string block =
      "-------- 04/11/19 09:41:11 LINE = 0003 STN = 7344\n00:00:00   OUTGOING CALL\n";
  const ProgramRun run = RunConmuta({"traduce", "-f", "json", "nortel-norstar", "-"}, block);
  const auto rows = LinesOf(run.out);
  ASSERT_EQ(rows.size(), 1U) << run.err;
  EXPECT_EQ(Json::parse(rows[0])["linea"], 2);
  EXPECT_TRUE(run.err.starts_with("2 líneas: 1 llamada")) << run.err;
}

TEST(Traduce, ALineIsTheFirstLayoutsThatMakesACallOfIt) {
  const std::string out = ReadWhole(CaptureOf("altigen-out"));
  const std::string in = ReadWhole(CaptureOf("altigen-in"));
  const auto calls = [](const std::string& layout, const std::string& input, bool alone) {
    std::vector<std::string> arguments = {"traduce", "-q", "-f", "json", layout, "-"};
    if (alone) arguments.push_back("--sin-alternativas");
    return LinesOf(RunConmuta(arguments, input).out);
  };
  const auto both = calls("altigen-out+altigen-in", in + out, true);
  EXPECT_EQ(calls("altigen-out", in + out, false), both);  // its sheet names the other
  EXPECT_GT(both.size(), calls("altigen-out", in + out, true).size());
  for (const std::string& row : calls("altigen-out", in + out, true)) {
    EXPECT_NE(std::find(both.begin(), both.end(), row), both.end()) << row;
  }
  const ProgramRun run = RunConmuta({"traduce", "altigen-out", "-"}, in + out);
  EXPECT_NE(run.err.find("llamadas por conmutador: altigen-out "), std::string::npos) << run.err;
}

TEST(Traduce, WhatGoesIntoACallOfOneLayoutIsNoCallOfAnother) {
  const std::string capture =
      "-------- 04/04/99 11:39:43 LINE = 0003 STN = 7425\n00:00:00   OUTGOING CALL\n"
      "           DIGITS DIALED    5551212\n00:00:37   ACCOUNT CODE     87\n"
      "00:12:59   CALL RELEASED\n";
  const auto calls = [&](const std::string& layout) {
    return LinesOf(RunConmuta({"traduce", "-q", "-f", "csv", layout, "-"}, capture).out).size();
  };
  EXPECT_EQ(calls("nortel-norstar+comdial-dx80"), calls("nortel-norstar"));
}

TEST(Traduce, NothingThatIsReadIsWrittenOver) {
  test::TemporaryFolder folder;
  const std::string file = (folder.path() / "capture.txt").string();
  std::ofstream(file, std::ios::binary) << kCall;
  const ProgramRun run =
      RunConmuta({"traduce", "-q", "--reemplaza", "-o", file, "panasonic-kx", file});
  EXPECT_EQ(run.code, 2);
  EXPECT_NE(run.err.find("es también lo que se lee"), std::string::npos) << run.err;
  EXPECT_EQ(ReadWhole(file), kCall);
}

TEST(Traduce, SeveralFilesInParallelComeOutInTheirOrder) {
  std::vector<std::string> arguments = {"traduce", "-f", "csv", "nec-date"};
  for (const std::string name :
       {"nec-date", "nec-nodate", "toshiba-ctx", "nec-date", "mitel-standard"}) {
    arguments.push_back(CaptureOf(name));
  }
  const ProgramRun alone = RunConmuta(arguments);
  arguments.insert(arguments.begin() + 1, {"-j", "4"});
  const ProgramRun together = RunConmuta(arguments);
  EXPECT_EQ(together.out, alone.out);
  EXPECT_EQ(together.err, alone.err);
  EXPECT_GT(LinesOf(alone.out).size(), 40U);
  EXPECT_NE(alone.err.find("\ntotal: "), std::string::npos);
}

TEST(Traduce, WhatIsWrongIsSaidBeforeAnythingIsWritten) {
  test::TemporaryFolder folder;
  const std::string missing = (folder.path() / "nada.txt").string();
  const std::string good = CaptureOf("nec-date");
  const struct {
    std::vector<std::string> arguments;
    std::string said;
  } cases[] = {
      {{"nec-date", good, missing}, missing + ": no se puede leer: no existe\n"},
      {{"nec-date", folder.path().string()},
       folder.path().string() + ": es una carpeta, no un archivo\n"},
      {{"nec-dat", good},
       "nec-dat: no hay tal archivo ni tal conmutador en el catálogo; ¿quiso decir nec-date?\n"},
      {{folder.path().string(), good},
       folder.path().string() + ": la carpeta no tiene un layout.toml\n"},
      {{good, good}, good + ": no es una configuración ni un archivo de intercambio\n"},
      {{"nec-date", "-", "-"}, "La entrada estándar sólo se puede leer una vez.\n"},
      {{"-j", "0", "nec-date", good}, "--trabajos: «0» no es un número de 1 a 64\n"},
      {{"-o", good, "nec-date", good}, good + ": ya existe; --reemplaza lo escribe de nuevo\n"},
  };
  for (const auto& row : cases) {
    std::vector<std::string> arguments = {"traduce"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const ProgramRun run = RunConmuta(arguments, kCall);
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.err, row.said);
    EXPECT_EQ(run.out, "");
  }
}

TEST(Traduce, AMistakeOfALayoutNamesFileLineAndItem) {
  test::TemporaryFolder folder;
  const std::string file = (folder.path() / "x.toml").string();
  std::ofstream(file, std::ios::binary)
      << "marca = \"A\"\nmodelo = \"B\"\ncomentarios = \"\"\nseparador = \"\\r\\n\"\n"
         "caso = \"Estandar\"\n[datos]\nFechaDia = { pos = 300, tam = 2 }\n";
  const ProgramRun run = RunConmuta({"traduce", file, "-"}, kCall);
  EXPECT_EQ(run.code, 2);
  EXPECT_EQ(run.err, file + ":7: FechaDia: la posición 300 pasa de 254 (de 1 a 254)\n");
}

TEST(Traduce, AFileOfOutputIsReplacedOnlyWhenAsked) {
  test::TemporaryFolder folder;
  const std::filesystem::path path = folder.path() / u8"ñandú €.csv";
  const std::u8string utf8 = path.u8string();
  const std::string file(utf8.begin(), utf8.end());
  ASSERT_EQ(RunConmuta({"traduce", "-q", "-f", "csv", "-o", file, "panasonic-kx", "-"}, kCall).code,
            0);
  const std::string first = ReadWhole(path);
  EXPECT_NE(first.find(",5550177,"), std::string::npos);
  EXPECT_EQ(RunConmuta({"traduce", "-q", "-o", file, "panasonic-kx", "-"}, kNoCall).code, 2);
  EXPECT_EQ(ReadWhole(path), first);
  EXPECT_EQ(
      RunConmuta({"traduce", "-q", "--reemplaza", "-f", "csv", "-o", file, "panasonic-kx", "-"},
                 kNoCall)
          .code,
      0);
  EXPECT_EQ(LinesOf(ReadWhole(path)).size(), 1U);
}

}  // namespace
}  // namespace conmuta::host
