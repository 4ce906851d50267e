// The three kinds of file that a layout is kept in, each as bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "layouts/layout.h"
#include "taller/message.h"

namespace conmuta::taller {

enum class Format : std::uint8_t {
  kLayout,         // layout.toml: all that is known of a switch
  kConfiguration,  // .cfg: what a translator needs of it
  kExchange,       // the text exchange file: the same, of the standard case only
};

struct FileReading {
  std::optional<Format> format;  // when there is no message
  std::string toml;              // what the file says, as a layout file; as written if it is one
  Messages messages;
};

// Takes any bytes. `name` is what messages call the file.
FileReading ReadFile(std::string_view bytes, TextView name);

struct FileWriting {
  std::optional<std::string> bytes;  // when there is no message
  Messages messages;
};

// A layout file has the text as it is; of the others, the layout that it says is written.
FileWriting WriteFile(const std::string& toml, const layouts::Layout& layout, Format format);

}  // namespace conmuta::taller
