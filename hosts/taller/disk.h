// The disk as the workshop sees it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace conmuta::taller {

// What fails raises host::UserError: one sentence with the file and the reason.
class Disk {
 public:
  virtual ~Disk() = default;

  virtual std::string Read(const std::filesystem::path& path) = 0;

  // The file has these bytes afterwards, or what it had before.
  virtual void Write(const std::filesystem::path& path, std::string_view bytes) = 0;

  virtual bool Exists(const std::filesystem::path& path) = 0;

  // Nothing happens where there is none.
  virtual void Remove(const std::filesystem::path& path) = 0;
};

class SystemDisk final : public Disk {
 public:
  std::string Read(const std::filesystem::path& path) override;
  void Write(const std::filesystem::path& path, std::string_view bytes) override;
  bool Exists(const std::filesystem::path& path) override;
  void Remove(const std::filesystem::path& path) override;
};

}  // namespace conmuta::taller
