// Bytes on their way out, written in place: a row costs no allocation.
#pragma once

#include <cstring>
#include <functional>
#include <memory>
#include <string_view>

namespace conmuta::host {

class OutBuffer {
 public:
  using Sink = std::function<void(std::string_view)>;

  explicit OutBuffer(Sink sink) : sink_(std::move(sink)) {}
  OutBuffer(const OutBuffer&) = delete;
  OutBuffer& operator=(const OutBuffer&) = delete;

  // No row is longer.
  static constexpr std::size_t kMost = std::size_t{1} << 16;

  // Room for at least `size` bytes, kMost or less, until the next call.
  char* Room(std::size_t size) {
    if (size > kMost - used_) Flush();
    return bytes_.get() + used_;
  }
  // How far the room was written to.
  void WroteTo(const char* end) { used_ = static_cast<std::size_t>(end - bytes_.get()); }

  void Put(std::string_view text) {
    while (!text.empty()) {
      const std::string_view part = text.substr(0, kMost);
      char* room = Room(part.size());
      std::memcpy(room, part.data(), part.size());
      WroteTo(room + part.size());
      text.remove_prefix(part.size());
    }
  }

  void Flush() {
    if (used_ != 0) sink_({bytes_.get(), used_});
    used_ = 0;
  }

 private:
  Sink sink_;
  std::unique_ptr<char[]> bytes_ = std::make_unique_for_overwrite<char[]>(kMost);
  std::size_t used_ = 0;
};

}  // namespace conmuta::host
