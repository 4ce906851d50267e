// What is fuzzed. Each target takes any bytes, checks what must hold whatever they are, and aborts
// when it does not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace conmuta::fuzz {

// The bytes are a configuration file.
void Open(std::string_view bytes);

// The bytes are a text exchange file.
void Import(std::string_view bytes);

// The first byte chooses a layout, the rest are lines that a PBX printed.
void Lines(std::string_view bytes);

// A configuration file, a line "==", and lines that a PBX printed: watched and unwatched, in
// whatever case.
void Translate(std::string_view bytes);

// What a host writes to a configuration, files that cannot be written among it.
void Write(std::string_view bytes);

// What a person does to the manager window while files fail and others change them.
void Manage(std::string_view bytes);

// The bytes are a layout that somebody wrote.
void Layout(std::string_view bytes);

// The bytes are a capture, or the calls that are expected of one.
void Capture(std::string_view bytes);

struct Target {
  const char* name;  // of its folder in corpus/, too
  void (*run)(std::string_view bytes);
  int mutations;  // of the seeds that the replay tries
};
inline constexpr Target kTargets[] = {
    {"open", Open, 2000},           {"import", Import, 2000},   {"lines", Lines, 2000},
    {"translate", Translate, 2000}, {"write", Write, 200},      {"manage", Manage, 200},
    {"layout", Layout, 500},        {"capture", Capture, 2000},
};

// Stops the program with what was expected.
void Require(bool holds, const char* what);

}  // namespace conmuta::fuzz
