#include "conmuta/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>

#include "conmuta/command.h"
#include "conmuta/user_error.h"

namespace conmuta::host {
namespace {

std::vector<std::string_view> Words(std::string_view text) {
  std::vector<std::string_view> words;
  while (!text.empty()) {
    const std::size_t blank = std::min(text.find(' '), text.size());
    words.push_back(text.substr(0, blank));
    text.remove_prefix(std::min(blank + 1, text.size()));
  }
  return words;
}

[[noreturn]] void Fail(const Command& command, const std::string& what) {
  throw UserError(what + "\nconmuta " + std::string(command.name) + " --help dice cómo se usa.");
}

void CheckChoice(const Command& command, std::string_view name, const std::string& value,
                 std::string_view choices) {
  const auto words = Words(choices);
  if (choices.empty() || std::find(words.begin(), words.end(), value) != words.end()) return;
  std::string allowed;
  for (const std::string_view word : words)
    allowed += (allowed.empty() ? "" : ", ") + std::string(word);
  Fail(command, std::string(name) + ": «" + value + "» no es uno de estos valores: " + allowed);
}

void CheckOperands(const Command& command, const std::vector<std::string>& operands) {
  std::size_t at = 0;
  for (const Operand& operand : command.operands) {
    std::size_t taken = 0;
    for (; taken < operand.most && at < operands.size(); ++taken, ++at) {
      CheckChoice(command, operand.name, operands[at], operand.choices);
    }
    if (taken < operand.least) Fail(command, "Falta " + std::string(operand.name) + ".");
  }
  if (at < operands.size()) Fail(command, "Sobra «" + operands[at] + "».");
}

// As the library wants it: "-f,--formato".
std::string NamesOf(const Option& option) {
  std::string names(option.letter);
  if (!names.empty()) names += ',';
  return names += option.name;
}

}  // namespace

Arguments::Arguments(const Command& command, const std::vector<std::string>& words) {
  CLI::App app;
  app.set_help_flag();
  app.allow_windows_style_options(false);  // "/home" is a folder everywhere
  app.allow_extras();
  std::map<std::string_view, CLI::Option*> made;
  std::map<std::string_view, std::string> values;
  for (const Option& option : command.options) {
    made[option.name] = option.value.empty() ? app.add_flag(NamesOf(option))
                                             : app.add_option(NamesOf(option), values[option.name]);
  }
  // What follows "--" is no option, whatever it looks like.
  const auto mark = std::find(words.begin(), words.end(), "--");
  std::vector<std::string> named(words.begin(), mark);
  std::reverse(named.begin(), named.end());
  try {
    app.parse(named);
  } catch (const CLI::ArgumentMismatch& error) {
    // It begins with the option's name.
    const std::string what = error.what();
    Fail(command, "A la opción " + what.substr(0, what.find_first_of(": ")) +
                      " le falta su valor, o le sobra.");
  } catch (const CLI::ParseError& error) {
    Fail(command, "No se entienden las opciones: " + std::string(error.what()));
  }
  for (const std::string& word : app.remaining()) {
    if (word.size() > 1 && word[0] == '-') Fail(command, "No hay tal opción: " + word);
    operands_.push_back(word);
  }
  if (mark != words.end()) operands_.insert(operands_.end(), mark + 1, words.end());
  for (const Option& option : command.options) {
    if (made[option.name]->count() == 0) continue;
    CheckChoice(command, option.name, values[option.name],
                option.value.empty() ? "" : option.choices);
    options_.emplace(option.name, values[option.name]);
  }
  CheckOperands(command, operands_);
}

std::string Arguments::At(std::size_t place, std::string_view fallback) const {
  return place < operands_.size() ? operands_[place] : std::string(fallback);
}

std::string Arguments::Value(std::string_view option, std::string_view fallback) const {
  const auto found = options_.find(option);
  return found != options_.end() ? found->second : std::string(fallback);
}

std::size_t Arguments::Number(std::string_view option, std::size_t least, std::size_t most,
                              std::size_t fallback) const {
  const auto found = options_.find(option);
  if (found == options_.end()) return fallback;
  const std::string& text = found->second;
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < least || number > most) {
    throw UserError(std::string(option) + ": «" + text + "» no es un número de " +
                    std::to_string(least) + " a " + std::to_string(most));
  }
  return number;
}

}  // namespace conmuta::host
