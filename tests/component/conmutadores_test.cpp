// The catalogue through its virtual table, up to its window.
#include "host_test.h"

namespace conmuta::test {
namespace {

class ConmutadoresTest : public HostTest {};

TEST_F(ConmutadoresTest, NewOneIsEmpty) {
  const auto catalogue = NewCatalogue();
  EXPECT_EQ(Read(catalogue, &Catalogue::get_Directorio), u"");
  EXPECT_EQ(Read(catalogue, &Catalogue::get_Prefijo), u"");
  EXPECT_EQ(Read(catalogue, &Catalogue::get_Extension), u"");
  EXPECT_EQ(Read(catalogue, &Catalogue::get_ArchivoInstalado), u"");
  EXPECT_EQ(Read(catalogue, &Catalogue::get_Instalado), VARIANT_FALSE);
}

TEST_F(ConmutadoresTest, FolderEndsInABackslash) {
  const auto catalogue = NewCatalogue();
  Do(catalogue, &Catalogue::put_Directorio, u"C:\\año");
  EXPECT_EQ(Read(catalogue, &Catalogue::get_Directorio), u"C:\\año\\");
  Do(catalogue, &Catalogue::put_Directorio, u"C:\\otro\\");
  EXPECT_EQ(Read(catalogue, &Catalogue::get_Directorio), u"C:\\otro\\");
  Do(catalogue, &Catalogue::put_Directorio, u"C:/otro/");
  EXPECT_EQ(Read(catalogue, &Catalogue::get_Directorio), u"C:/otro/\\");
}

TEST_F(ConmutadoresTest, OtherTextsAreKeptAsGiven) {
  struct Row {
    HRESULT (STDMETHODCALLTYPE Catalogue::*get)(BSTR*);
    HRESULT (STDMETHODCALLTYPE Catalogue::*put)(BSTR);
  };
  const auto catalogue = NewCatalogue();
  for (const Row& row : {Row{&Catalogue::get_Prefijo, &Catalogue::put_Prefijo},
                         Row{&Catalogue::get_Extension, &Catalogue::put_Extension},
                         Row{&Catalogue::get_ArchivoInstalado, &Catalogue::put_ArchivoInstalado}}) {
    const Text text = Text(u" ñ\0x ", 5) + Text(300, u'y');
    Do(catalogue, row.put, text);
    EXPECT_EQ(Read(catalogue, row.get), text);
    EXPECT_EQ((catalogue.get()->*row.put)(nullptr), S_OK);
    EXPECT_EQ(Read(catalogue, row.get), u"");
  }
}

}  // namespace
}  // namespace conmuta::test
