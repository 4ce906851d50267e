// Every file operation of every command made to fail in turn: what the user is told, and that the
// tree still tells what is on the disk.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "support/manager_bench.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using test::Message;
using test::Notice;
using test::Question;
using test::Shown;

using Messages = std::vector<Message>;

// One command before a catalogue of two models, the first of them the default switch.
struct Command {
  const char* name;
  void (*prepare)(ManagerBench& bench);
  void (*run)(ManagerBench& bench);
  Messages usual;
  // Operations whose failure changes what is told: "operation file" and which of its kind.
  std::map<std::string, Messages> otherwise;
  // Operations whose failure leaves a model without its file.
  std::set<std::string> losing;
};
void PrintTo(const Command& command, std::ostream* out) {
  *out << command.name;
}

const Message kUpdate = Question(u"¿Deseas actualizar el conmutador : ACME, X1 ?");
const Message kDelete = Question(
    u"¿Esta seguro que desea eliminar el conmutador : ACME, X1 ?\r\n"
    u"Este conmutador esta predeterminado, eliminarlo provocara que no halla conmutador "
    u"predeterminado.",
    u"Advertencia");
const Message kUninstall = Question(u"¿Deseas quitar el conmutador predeterminado 'ACME, X1'?");
const Message kNoAccess =
    Notice(u"No es posible acceder al archivo :  D:\\new.cfg\r\nAcceso denegado.", u"Error");
const Message kNotFound =
    Notice(u"No es posible encontrar el archivo deseado.\r\n Archivo :C:\\cat\\cfg.tmp", u"Error");
const Message kNotRecognisedNotice = Notice(
    u"No es posible abrir al archivo de configuración, no se reconoce.\r\n"
    u" Archivo :C:\\cat\\cfg.tmp",
    u"Error");

Message Installed(TextView name) {
  return Notice(
      Text(u"Se ha predeterminado exitosamente el conmutador \r\n").append(name).append(u"."));
}

void PrepareFile(ManagerBench& bench, const std::string& model) {
  bench.Put(ManagerBench::kAdded, "ACME", model, "new");
  bench.Put(u"C:\\cat\\cfg.tmp", "OLD", "OLD");
  bench.view.chosen = Text(ManagerBench::kAdded);
}

const Command kCommands[] = {
    {"click", [](ManagerBench&) {}, [](ManagerBench& bench) { bench.Click(u"MOD2"); }, {}, {}, {}},
    {"add",
     [](ManagerBench& bench) { PrepareFile(bench, "X3"); },
     [](ManagerBench& bench) { bench.window->btnBuscar(); },
     {},
     {{"copy to cfg.tmp", {kNoAccess}},
      {"attributes cfg.tmp", {kNotFound}},
      {"read cfg.tmp", {kNotRecognisedNotice}}},
     {}},
    {"update",
     [](ManagerBench& bench) { PrepareFile(bench, "X1"); },
     [](ManagerBench& bench) { bench.window->btnBuscar(); },
     {kUpdate},
     {{"copy to cfg.tmp", {kNoAccess}},
      {"attributes cfg.tmp", {kNotFound}},
      {"read cfg.tmp", {kNotRecognisedNotice}}},
     // Saving deletes the old file first.
     {"write cnm1.cfg"}},
    {"delete",
     [](ManagerBench& bench) { bench.Click(u"MOD1"); },
     [](ManagerBench& bench) { bench.window->btnEliminar(); },
     {kDelete},
     {},
     {}},
    {"install",
     [](ManagerBench& bench) { bench.Click(u"MOD2"); },
     [](ManagerBench& bench) { bench.window->btnInstalar(); },
     {Installed(u"ACME, X2")},
     {{"probe cnm2.cfg", {}},
      // Marked again, its file cannot be looked at any more.
      {"probe cnm2.cfg #2", {Installed(u"Desconocido")}},
      {"attributes cnm2.cfg", {Installed(u"Desconocido")}},
      {"read cnm2.cfg", {Installed(u"Desconocido")}}},
     {}},
    {"uninstall",
     [](ManagerBench& bench) { bench.Click(u"MOD2"); },
     [](ManagerBench& bench) { bench.window->btnDesinstalar(); },
     {kUninstall, Notice(u"Se ha quitado el conmutador predeterminado exitosamente.")},
     {{"probe actual.cfg", {kUninstall}},
      {"remove actual.cfg", {kUninstall, Notice(u"Acceso denegado.")}}},
     {}},
    {"collapse",
     [](ManagerBench& bench) { bench.Click(u"MOD2"); },
     [](ManagerBench& bench) { bench.window->btnContraer(); },
     {},
     {},
     {}},
};

class FailingCommand : public testing::TestWithParam<Command> {};

INSTANTIATE_TEST_SUITE_P(Manager, FailingCommand, testing::ValuesIn(kCommands),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(FailingCommand, TellsWhatItShouldAndKeepsTheTreeTrue) {
  const Command& command = GetParam();
  std::set<std::string> met;
  for (int failing = 1;; ++failing) {
    ManagerBench bench;
    bench.PutModel(1, "ACME", "X1", "old");
    bench.PutModel(2, "ACME", "X2");
    bench.Put(ManagerBench::kDefault, "ACME", "X1", "old");
    bench.Open();
    command.prepare(bench);
    bench.failing.FailAt(failing);
    command.run(bench);
    const auto operations = bench.failing.operations;
    const auto index = static_cast<std::size_t>(failing - 1);
    const bool failed = index < operations.size();

    std::string operation;
    if (failed) {
      operation = operations[index];
      const auto times = std::count(operations.begin(), operations.begin() + failing, operation);
      if (times > 1) operation += " #" + std::to_string(times);
      met.insert(operation);
    }
    SCOPED_TRACE(failed ? "failing: " + operation : "nothing fails");
    bench.failing.FailAt(0);
    const auto special = command.otherwise.find(operation);
    EXPECT_EQ(bench.view.messages,
              special != command.otherwise.end() ? special->second : command.usual);
    bench.ExpectSound();
    if (command.losing.count(operation) == 0) {
      EXPECT_EQ(bench.Models(), bench.FreshModels());
    } else {
      EXPECT_NE(bench.Models(), bench.FreshModels());
    }
    // Nothing that the user did not ask to change is touched.
    EXPECT_EQ(bench.BytesOf(ManagerBench::ModelPath(2)), ManagerBench::Bytes("ACME", "X2"));
    // The window goes on working.
    bench.Click(u"MOD2");
    EXPECT_EQ(bench.window->etqArch(), ManagerBench::ModelPath(2));
    EXPECT_TRUE(bench.window->model_commands_enabled());
    bench.ExpectSound();
    if (!failed) break;
  }
  for (const auto& [operation, messages] : command.otherwise) {
    EXPECT_EQ(met.count(operation), 1u) << "never happened: " << operation;
  }
}

TEST(FailingUpdate, DefaultSwitchIsNeverHalfDone) {
  for (int failing = 1; failing <= 20; ++failing) {
    ManagerBench bench;
    bench.PutModel(1, "ACME", "X1", "old");
    bench.Put(ManagerBench::kDefault, "ACME", "X1", "old");
    bench.Open();
    PrepareFile(bench, "X1");
    bench.failing.FailAt(failing);
    bench.window->btnBuscar();
    const std::string bytes = bench.BytesOf(ManagerBench::kDefault);
    EXPECT_TRUE(bytes == ManagerBench::Bytes("ACME", "X1", "old") ||
                bytes == ManagerBench::Bytes("ACME", "X1", "new") || bytes == "(no file)")
        << failing;
  }
}

// Either the model is gone from disk and tree, or from neither.
TEST(FailingDelete, EventComesOnlyWithADeletedModel) {
  for (int failing = 1; failing <= 3; ++failing) {
    ManagerBench bench;
    bench.PutModel(1, "ACME", "X1");
    bench.Put(ManagerBench::kDefault, "ACME", "X1");
    bench.Open();
    bench.Click(u"MOD1");
    bench.failing.FailAt(failing);
    bench.window->btnEliminar();
    EXPECT_EQ(bench.installs, bench.Has(ManagerBench::ModelPath(1)) ? 0 : 1) << failing;
  }
}

}  // namespace
}  // namespace conmuta
