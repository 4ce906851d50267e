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
  bool Replace(TextView path, std::span<const ProfileValue> values) override {
    std::size_t before = 0;
    while (before < values.size() && !Fails(values[before])) ++before;
    return profiles_.Replace(path, values.first(before)) && before == values.size();
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
    bool Write(const ProfileValue& value) override {
      return !owner_.Fails(value) && file_->Write(value);
    }

   private:
    FailingProfiles& owner_;
    std::unique_ptr<ProfileFile> file_;
  };

  bool Fails(const ProfileValue& value) {
    writes.push_back(value.section + "/" + value.key + "=" + value.value);
    return std::cmp_equal(writes.size(), failing_write);
  }

  ProfileSystem& profiles_;
};

}  // namespace conmuta::test
