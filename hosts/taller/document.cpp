#include "taller/document.h"

#include "conmuta/user_error.h"
#include "layouts/names.h"
#include "layouts/read_layout.h"
#include "layouts/write_layout.h"
#include "platform/unicode.h"
#include "taller/doubts.h"

namespace conmuta::taller {
namespace {

struct Namer {
  Text operator()(const layouts::SetItem& change) const { return Item(change.item.Param); }
  Text operator()(const layouts::SetConstant& change) const { return Item(change.constant.Param); }
  Text operator()(const layouts::RemoveItem& change) const { return Item(change.kind); }
  Text operator()(const layouts::RemoveConstant& change) const { return Item(change.kind); }
  Text operator()(const layouts::SetText& change) const {
    constexpr TextView kNames[] = {u"Marca", u"Modelo", u"Comentarios", u"Separador"};
    return Text(kNames[static_cast<std::size_t>(change.key)]);
  }
  Text operator()(const layouts::SetCase&) const { return u"Caso"; }
  Text operator()(const layouts::SetWires&) const { return u"Cable"; }

  template <class Kind>
  static Text Item(Kind kind) {
    return Text(layouts::NameOf(kind));
  }
};

// The same for all changes that typing into one field makes.
std::string RunOf(const layouts::LayoutChange& change) {
  const Text name = NameOf(change);
  return std::to_string(change.index()) + std::string(name.begin(), name.end());
}

}  // namespace

Text NameOf(const layouts::LayoutChange& change) {
  return std::visit(Namer(), change);
}

Document::State Document::NewState() {
  layouts::Layout layout;
  layout.header.Marca.Assign(u"Sin marca");
  layout.header.Modelo.Assign(u"Sin modelo");
  layout.header.Separador.Assign(kLineBreak);
  return {layouts::WriteLayout(layout), layout};
}

Document::Document() : history_(NewState()) {}

Text Document::Title() const {
  const ConfigHeader& header = layout().header;
  return header.Marca.Read() + u", " + header.Modelo.Read() + (IsModified() ? u" *" : u"");
}

Messages Document::Apply(const layouts::LayoutChange& change, As as) {
  auto edit = layouts::EditLayout(toml(), change);
  if (!edit.toml) return MessagesOf(edit.mistakes);
  return Add(std::move(*edit.toml), NameOf(change), as == As::kTyping ? RunOf(change) : "");
}

Messages Document::Apply(std::span<const layouts::LayoutChange> changes, Text name) {
  std::string changed = toml();
  for (const layouts::LayoutChange& change : changes) {
    auto edit = layouts::EditLayout(changed, change);
    if (!edit.toml) return MessagesOf(edit.mistakes);
    changed = std::move(*edit.toml);
  }
  return Add(std::move(changed), std::move(name), {});
}

Messages Document::Replace(std::string toml, Text name) {
  return Add(std::move(toml), std::move(name), {});
}

Messages Document::Add(std::string toml, Text name, std::string run) {
  if (toml == this->toml()) return {};
  auto reading = layouts::ReadLayout(toml);
  if (!reading.layout) return MessagesOf(reading.mistakes);
  history_.Add({std::move(toml), std::move(*reading.layout)}, std::move(name), std::move(run));
  return {};
}

void Document::New() {
  history_.Restart(NewState());
  path_.clear();
  format_ = Format::kLayout;
}

Messages Document::Open(Disk& disk, const std::filesystem::path& path) {
  FileReading file;
  try {
    file = ReadFile(disk.Read(path), path.filename().u16string());
  } catch (const host::UserError& error) {
    return {MessageOf(error.what())};
  }
  if (!file.format) return std::move(file.messages);
  auto reading = layouts::ReadLayout(file.toml);
  if (!reading.layout) return MessagesOf(reading.mistakes);
  history_.Restart({std::move(file.toml), std::move(*reading.layout)});
  path_ = path;
  format_ = *file.format;
  return {};
}

Messages Document::SaveAs(Disk& disk, const std::filesystem::path& path, Format format) {
  const FileWriting file = WriteFile(toml(), layout(), format);
  if (!file.bytes) return file.messages;
  try {
    disk.Write(path, *file.bytes);
  } catch (const host::UserError& error) {
    return {MessageOf(error.what())};
  }
  path_ = path;
  format_ = format;
  history_.MarkSaved();
  return {};
}

Messages Document::Doubts() const {
  return DoubtsOf(layout());
}

}  // namespace conmuta::taller
