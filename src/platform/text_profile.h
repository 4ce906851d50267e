// Profile files for a platform whose system does not know them, with the behaviour of one that
// does.
#pragma once

#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/profile.h"

namespace conmuta {

class TextProfiles final : public ProfileSystem {
 public:
  TextProfiles(FileSystem& files, const CodePage& code_page)
      : files_(files), code_page_(code_page) {}

  std::unique_ptr<ProfileFile> Open(TextView path) override;
  bool Replace(TextView path, std::span<const ProfileValue> values) override;

 private:
  FileSystem& files_;
  const CodePage& code_page_;
};

}  // namespace conmuta
