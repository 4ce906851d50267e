// Profile files that write down what is written, and fail at the write that a test names.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/profile.h"

namespace conmuta::test {

class FailingProfiles final : public ProfileSystem {
 public:
  explicit FailingProfiles(ProfileSystem& profiles) : profiles_(profiles) {}

  std::unique_ptr<ProfileFile> Open(TextView path) override {
    return std::make_unique<File>(*this, profiles_.Open(path));
  }
  std::unique_ptr<ProfileFile> Create(TextView path) override {
    return std::make_unique<File>(*this, profiles_.Create(path));
  }

  int failing_write = 0;            // counted from 1; 0 for none
  std::vector<std::string> writes;  // "section/key=value", the one that failed included

 private:
  class File final : public ProfileFile {
   public:
    File(FailingProfiles& owner, std::unique_ptr<ProfileFile> file)
        : owner_(owner), file_(std::move(file)) {}

    std::string Read(std::string_view section, std::string_view key) override {
      return file_->Read(section, key);
    }
    bool Write(std::string_view section, std::string_view key, std::string_view value) override {
      owner_.writes.push_back(
          std::string(section).append("/").append(key).append("=").append(value));
      if (std::cmp_equal(owner_.writes.size(), owner_.failing_write)) return false;
      return file_->Write(section, key, value);
    }

   private:
    FailingProfiles& owner_;
    std::unique_ptr<ProfileFile> file_;
  };

  ProfileSystem& profiles_;
};

}  // namespace conmuta::test
