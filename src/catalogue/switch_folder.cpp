#include "catalogue/switch_folder.h"

#include "platform/number.h"

namespace conmuta {

Text SwitchFolder::WithBackslash(TextView directory) {
  Text whole(directory);
  if (!whole.ends_with(u'\\')) whole += u'\\';
  return whole;
}

Text SwitchFolder::FileOf(std::int32_t number) const {
  return Text(directory).append(prefix).append(ToText(number)).append(u".").append(extension);
}

std::optional<std::int32_t> SwitchFolder::NumberOf(TextView file_name) const {
  const std::size_t around = prefix.size() + extension.size() + 1;
  if (file_name.size() <= around) return std::nullopt;
  const auto number = ReadWholeNumber(file_name.substr(prefix.size(), file_name.size() - around));
  if (!number || !std::in_range<std::int32_t>(*number)) return std::nullopt;
  return static_cast<std::int32_t>(*number);
}

std::vector<SwitchFolder::Entry> SwitchFolder::Scan(FileSystem& files) const {
  std::vector<Entry> entries;
  const Text pattern = Text(directory).append(prefix).append(u"*.").append(extension);
  for (const Text& name : files.List(pattern)) {
    if (name == u"." || name == u"..") continue;
    const Text path = directory + name;
    if ((files.Attributes(path).value_or(0) & kAttributeArchive) == 0) continue;
    if (const auto number = NumberOf(name)) entries.push_back({*number, path});
  }
  return entries;
}

bool SwitchFolder::CopyToTemporary(FileSystem& files, TextView from) const {
  const Text copy = TemporaryFile();
  if (files.Exists(copy)) files.Remove(copy);
  return files.Copy(from, copy);
}

void SwitchFolder::Install(FileSystem& files, TextView from) const {
  if (files.Exists(installed_file)) files.Remove(installed_file);
  files.Copy(from, installed_file);
}

void SwitchFolder::UpdateInstalled(FileSystem& files, TextView from) const {
  if (!IsInstalledFile(from) && files.Remove(installed_file)) files.Copy(from, installed_file);
}

}  // namespace conmuta
