// A configuration on a machine made of fakes, with its events written down.
#pragma once

#include "config/clsCfgConmut.h"
#include "platform/text_profile.h"
#include "support/config_builder.h"
#include "support/fake_clock.h"
#include "support/fake_code_pages.h"
#include "support/fake_files.h"
#include "support/recording_listener.h"

namespace conmuta::test {

class ConfigBench {
 public:
  ConfigBench() { config.Listen(&listener); }

  // Brand, model and separator: enough to be saved. Leaves the events untaken.
  void Name() {
    config.Marca(u"ACME");
    config.Modelo(u"X1");
    config.Separador(u"\r\n");
  }

  // What happened since the last call.
  Events TakeEvents() { return listener.Take(); }

  FakeFiles files;
  FakeClock clock;
  Latin1 code_page;
  TextProfiles profiles{files, code_page};
  Platform platform{files, clock, code_page, profiles};
  RecordingListener listener;
  clsCfgConmut config{platform};
};

}  // namespace conmuta::test
