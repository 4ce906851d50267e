// A technician's way from an empty layout to the catalogue's configuration, in the window.
#include <algorithm>

#include "layouts/read_layout.h"
#include "taller/win32/header_window.h"
#include "workshop.h"

namespace conmuta::taller {
namespace {

// The first line behind the head that has that text there; 0 for none.
std::uint64_t LineWith(const Shop& shop, TextView wanted, int pos) {
  return shop.See([&](MainWindow& main) -> std::uint64_t {
    const Workbench& bench = main.bench();
    for (std::uint64_t line = bench.capture().head_lines() + 1; line <= bench.lines(); ++line) {
      const Text text = bench.LineAt(line).text;
      const auto begin = static_cast<std::size_t>(pos - 1);
      if (begin < text.size() && TextView(text).substr(begin, wanted.size()) == wanted) return line;
    }
    return 0;
  });
}

// Columns become what is chosen for them, by mouse or, where it is one, by keyboard.
void Say(const Shop& shop, std::uint64_t line, int pos, int size, TextView name) {
  if (size > 1) {
    shop.MarkWithMouse(line, pos, pos + size - 1);
  } else {
    shop.MoveTo(line, pos);
    shop.person().Key(VK_RETURN);
  }
  shop.Choose(name);
}

TEST_F(WorkshopTest, SwitchIsDescribedFromNothingWithMouseAndKeyboardToTheCataloguesBytes) {
  const auto wanted =
      layouts::ReadLayout(BytesOf(SwitchFile("mitel-standard", "layout.toml"))).layout.value();
  Work([&](const Shop& shop) {
    shop.OpenCapture(SwitchFile("mitel-standard", "capture.txt"));
    for (int i = 0; i < 4; ++i) shop.Command(kZoomOut);  // all of it is seen
    const Person& person = shop.person();

    shop.Command(kEditHeader);
    const HWND header = person.WaitForWindow(u"Datos del conmutador");
    person.Type(GetDlgItem(header, kHeaderBrand), wanted.header.Marca.Read());
    person.Type(GetDlgItem(header, kHeaderModel), wanted.header.Modelo.Read());
    person.Type(GetDlgItem(header, kHeaderComments), wanted.header.Comentarios.Read());
    person.Press(GetDlgItem(header, IDOK));
    person.WaitUntilClosed(header);

    const std::uint64_t first = LineWith(shop, u"03/12 07:42", 2);
    for (const DATO& item : wanted.items) {
      Say(shop, first, item.Pos, item.Tam, layouts::NameOf(item.Param));
    }
    for (const CTE& constant : wanted.constants) {
      const Text text = constant.Constante.Read();
      const std::uint64_t line = LineWith(shop, text, constant.Pos);
      Say(shop, line != 0 ? line : first, constant.Pos, constant.Tam,
          layouts::NameOf(constant.Param));
      if (line == 0) person.Type(shop.At(kLayoutText), text);
    }
    shop.WaitForVerdicts();
    EXPECT_EQ(TextOf(shop.At(kStatusLine)).find(u"0 llamadas"), Text::npos)
        << Narrow(TextOf(shop.At(kStatusLine)));

    shop.Command(kSaveLayoutAs);
    const auto saved = folder() / "mitel.cfg";
    shop.ChooseFile(u"Guardar configuración como", saved);
    SystemDisk disk;
    Document catalogue;
    ASSERT_TRUE(catalogue.Open(disk, SwitchFile("mitel-standard", "layout.toml")).empty());
    const auto expected = folder() / "catalogo.cfg";
    ASSERT_TRUE(catalogue.SaveAs(disk, expected, Format::kConfiguration).empty());
    EXPECT_EQ(BytesOf(saved), BytesOf(expected));
    shop.Leave();
  });
}

}  // namespace
}  // namespace conmuta::taller
