#pragma once

#include "platform/code_page.h"
#include "platform/profile.h"

namespace conmuta {

// The system's own profile functions, in the ANSI code page.
class SystemProfiles final : public ProfileSystem {
 public:
  explicit SystemProfiles(const CodePage& code_page) : code_page_(code_page) {}

  std::unique_ptr<ProfileFile> Open(TextView path) override;
  bool Replace(TextView path, std::span<const ProfileValue> values) override;

 private:
  const CodePage& code_page_;
};

}  // namespace conmuta
