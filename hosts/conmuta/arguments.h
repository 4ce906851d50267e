// The arguments that a subcommand was given.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace conmuta::host {

struct Command;

// Checked against the command's table when they are read: what is there is allowed there.
class Arguments {
 public:
  // Everything behind the subcommand's name. UserError for what the command does not take.
  Arguments(const Command& command, const std::vector<std::string>& words);

  const std::vector<std::string>& operands() const { return operands_; }
  // The operand at a place, or the fallback where there are fewer.
  std::string At(std::size_t place, std::string_view fallback = {}) const;

  bool Has(std::string_view option) const { return options_.count(option) != 0; }
  std::string Value(std::string_view option, std::string_view fallback) const;
  // A whole number of that range.
  std::size_t Number(std::string_view option, std::size_t least, std::size_t most,
                     std::size_t fallback) const;

 private:
  std::vector<std::string> operands_;
  std::map<std::string, std::string, std::less<>> options_;
};

}  // namespace conmuta::host
