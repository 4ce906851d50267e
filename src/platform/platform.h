// All that the core needs from the machine, handed in so that tests can lie.
#pragma once

#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/profile.h"

namespace conmuta {

struct Platform {
  FileSystem& files;
  const Clock& clock;
  const CodePage& code_page;
  ProfileSystem& profiles;
};

// The machine itself. Lives as long as the process; may be used from any thread.
const Platform& SystemPlatform();

}  // namespace conmuta
