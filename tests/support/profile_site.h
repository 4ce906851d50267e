// Where profile files live: in memory under our own reader and writer, or on the machine's disk
// under what the machine uses, which on Windows are the system's functions.
#pragma once

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "platform/text_profile.h"
#include "support/fake_clock.h"
#include "support/fake_code_pages.h"
#include "support/fake_files.h"
#include "support/temporary_folder.h"

namespace conmuta::test {

class ProfileSite {
 public:
  virtual ~ProfileSite() = default;
  virtual const Platform& platform() const = 0;
  virtual Text Path(TextView name) const = 0;

  void Put(TextView name, std::string_view bytes) { platform().files.Write(Path(name), bytes); }
  // Nothing when there is no such file.
  std::optional<std::string> Bytes(TextView name) const {
    const auto content = platform().files.Read(Path(name), SIZE_MAX);
    if (!content) return std::nullopt;
    return content->bytes;
  }
  // The lines that say something: writers differ in blank ones.
  std::vector<std::string> Lines(TextView name) const {
    std::vector<std::string> lines(1);
    for (const char c : Bytes(name).value_or("")) {
      if (c != '\r' && c != '\n') {
        lines.back().push_back(c);
      } else if (!lines.back().empty()) {
        lines.emplace_back();
      }
    }
    if (lines.back().empty()) lines.pop_back();
    return lines;
  }
};

class MemorySite final : public ProfileSite {
 public:
  const Platform& platform() const override { return platform_; }
  Text Path(TextView name) const override { return Text(name); }

  FakeFiles files;

 private:
  FakeClock clock_;
  Latin1 code_page_;
  TextProfiles profiles_{files, code_page_};
  Platform platform_{files, clock_, code_page_, profiles_};
};

class DiskSite final : public ProfileSite {
 public:
  const Platform& platform() const override { return SystemPlatform(); }
  Text Path(TextView name) const override { return folder.Path(name); }

  TemporaryFolder folder;
};

enum class SiteKind { kMemory, kDisk };

inline std::unique_ptr<ProfileSite> MakeSite(SiteKind kind) {
  if (kind == SiteKind::kMemory) return std::make_unique<MemorySite>();
  return std::make_unique<DiskSite>();
}

inline constexpr SiteKind kEverySite[] = {SiteKind::kMemory, SiteKind::kDisk};

inline std::string SiteName(SiteKind kind) {
  return kind == SiteKind::kMemory ? "InMemory" : "OnDisk";
}
inline void PrintTo(SiteKind kind, std::ostream* out) {
  *out << SiteName(kind);
}

}  // namespace conmuta::test
