#include "conmuta/builtin_layouts.h"
#include "conmuta/help.h"

namespace conmuta::host {
namespace {

std::string Names(const Command& command) {
  std::string names = "--help";
  for (const Option& option : command.options) {
    names += ' ' + std::string(option.name);
    if (!option.letter.empty()) names += ' ' + std::string(option.letter);
  }
  return names;
}

// What bash offers in an argument's place.
std::string Offer(Offers offers, std::string_view choices) {
  switch (offers) {
    case Offers::kFiles:
      return "_conmuta_offer -f";
    case Offers::kFolders:
      return "_conmuta_offer -d";
    case Offers::kLayouts:
      return "_conmuta_offer -f -W \"$layouts\"";
    case Offers::kChoices:
      return "_conmuta_offer -W '" + std::string(choices) + "'";
    default:
      return ":";
  }
}

// The branches of a command: the values of its options, its options, its operands by their place.
std::string Branch(const Command& command) {
  std::string text = "    " + std::string(command.name) + ")\n      case $before in\n";
  std::string valued;
  for (const Option& option : command.options) {
    if (option.value.empty()) continue;
    std::string names(option.name);
    if (!option.letter.empty()) names += "|" + std::string(option.letter);
    text += "        " + names + ") " + Offer(option.offers, option.choices) + "; return ;;\n";
    valued += (valued.empty() ? "" : "|") + names;
  }
  text += "      esac\n      if [[ $word == -* ]]; then _conmuta_offer -W '" + Names(command) +
          "'; return; fi\n";
  text += "      _conmuta_place '" + valued + "'\n      case $place in\n";
  std::size_t place = 0;
  for (const Operand& operand : command.operands) {
    const bool is_last = operand.most == kAnyNumber;
    text += "        " + (is_last ? std::string("*") : std::to_string(place)) + ") " +
            Offer(operand.offers, operand.choices) + " ;;\n";
    ++place;
    if (is_last) break;
  }
  return text + "      esac ;;\n";
}

}  // namespace

std::string BashCompletion() {
  std::string commands = "--help --version";
  std::string branches;
  for (const Command* command : Commands()) {
    commands += ' ' + std::string(command->name);
    branches += Branch(*command);
  }
  std::string layouts;
  for (const BuiltinLayout& layout : BuiltinLayouts()) {
    layouts += (layouts.empty() ? "" : " ") + std::string(layout.name);
  }
  return "# bash completion of conmuta, made by: conmuta completa bash\n"
         "\n"
         "# Offers what compgen finds.\n"
         "_conmuta_offer() { mapfile -t COMPREPLY < <(compgen \"$@\" -- \"$word\"); }\n"
         "\n"
         "# How many arguments stand before the present one that are neither options nor, given "
         "the\n"
         "# options that take one, their values.\n"
         "_conmuta_place() {\n"
         "  local i\n"
         "  place=0\n"
         "  for ((i = 2; i < COMP_CWORD; i++)); do\n"
         "    if [[ -n $1 && ${COMP_WORDS[i]} =~ ^($1)$ ]]; then ((++i)); continue; fi\n"
         "    [[ ${COMP_WORDS[i]} == -?* ]] || ((++place))\n"
         "  done\n"
         "}\n"
         "\n"
         "_conmuta() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} place\n"
         "  local layouts='" +
         layouts +
         "'\n"
         "  COMPREPLY=()\n"
         "  if ((COMP_CWORD == 1)); then\n"
         "    _conmuta_offer -W '" +
         commands +
         "'\n"
         "    return\n"
         "  fi\n"
         "  case ${COMP_WORDS[1]} in\n" +
         branches +
         "  esac\n"
         "}\n"
         "complete -o filenames -F _conmuta conmuta\n";
}

}  // namespace conmuta::host
