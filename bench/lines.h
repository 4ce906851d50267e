// Many lines in one piece of memory, so that walking through them costs all readers the same.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace conmuta::bench {

class Lines {
 public:
  void Add(std::string_view latin1) {
    for (const char c : latin1) text_.push_back(static_cast<unsigned char>(c));
    ends_.push_back(text_.size());
  }
  void Add(std::u16string_view line) {
    text_ += line;
    ends_.push_back(text_.size());
  }

  std::size_t size() const { return ends_.size(); }
  std::u16string_view operator[](std::size_t i) const {
    const std::size_t begin = i != 0 ? ends_[i - 1] : 0;
    return {text_.data() + begin, ends_[i] - begin};
  }

 private:
  std::u16string text_;
  std::vector<std::size_t> ends_;
};

}  // namespace conmuta::bench
