// The failures the core raises. The COM boundary turns each into its HRESULT and error information.
#pragma once

#include <cstdint>
#include <exception>

#include "platform/text.h"

namespace conmuta {

// An integer did not fit the width it is stored in. Hosts see error 6.
class OverflowError : public std::exception {
 public:
  const char* what() const noexcept override { return "overflow"; }
};

// A procedure was given a value it cannot work on. Hosts see error 5.
class InvalidArgumentError : public std::exception {
 public:
  const char* what() const noexcept override { return "invalid argument"; }
};

// An object was needed and none was given. Hosts see error 91.
class ObjectNotSetError : public std::exception {
 public:
  const char* what() const noexcept override { return "object not set"; }
};

// A configuration operation failed in a way that hosts tell apart by number, source and text.
class ConfigError : public std::exception {
 public:
  ConfigError(std::uint32_t number, Text source, Text description)
      : number_(number), source_(std::move(source)), description_(std::move(description)) {}

  const char* what() const noexcept override { return "configuration error"; }
  std::uint32_t number() const { return number_; }  // a COM error number, 0x80040000 and up
  const Text& source() const { return source_; }
  const Text& description() const { return description_; }

 private:
  std::uint32_t number_;
  Text source_;
  Text description_;
};

}  // namespace conmuta
