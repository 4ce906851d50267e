// The texts of a configuration, as BSTRs.
#include "host_test.h"

namespace conmuta::test {
namespace {

using Getter = HRESULT (STDMETHODCALLTYPE Cfg::*)(BSTR*);
using Setter = HRESULT (STDMETHODCALLTYPE Cfg::*)(BSTR);

struct TextProperty {
  const char* name;
  Getter get;
  Setter put;
  std::size_t width;
};
const TextProperty kTexts[] = {
    {"Marca", &Cfg::get_Marca, &Cfg::put_Marca, 50},
    {"Modelo", &Cfg::get_Modelo, &Cfg::put_Modelo, 50},
    {"Comentarios", &Cfg::get_Comentarios, &Cfg::put_Comentarios, 250},
    {"Separador", &Cfg::get_Separador, &Cfg::put_Separador, 10},
};

class CfgConmutTextsTest : public HostTest {};

TEST_F(CfgConmutTextsTest, AreKeptAsWritten) {
  for (const TextProperty& p : kTexts) {
    SCOPED_TRACE(p.name);
    const auto config = NewConfig();
    Do(config, p.put, u" ñÉ\u4E2D\r\n ");
    EXPECT_EQ(Read(config, p.get), u" ñÉ\u4E2D\r\n ");
    EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
  }
}

TEST_F(CfgConmutTextsTest, AreCutToTheirWidth) {
  for (const TextProperty& p : kTexts) {
    SCOPED_TRACE(p.name);
    const auto config = NewConfig();
    Do(config, p.put, Text(p.width, u'a') + u"b");
    EXPECT_EQ(Read(config, p.get), Text(p.width, u'a'));
    Do(config, p.put, Text(70000, u'c'));
    EXPECT_EQ(Read(config, p.get), Text(p.width, u'c'));
  }
}

TEST_F(CfgConmutTextsTest, DropEmbeddedNulsOnlyWhenRead) {
  for (const TextProperty& p : kTexts) {
    SCOPED_TRACE(p.name);
    const auto config = NewConfig();
    // The NUL takes a place: the last character no longer fits.
    Do(config, p.put, Text(1, u'\0') + Text(p.width - 1, u'a') + u"b");
    EXPECT_EQ(Read(config, p.get), Text(p.width - 1, u'a'));
  }
}

TEST_F(CfgConmutTextsTest, NullAndEmptyAreTheSameText) {
  for (const TextProperty& p : kTexts) {
    SCOPED_TRACE(p.name);
    const auto config = NewConfig();
    EXPECT_EQ((config.get()->*p.put)(nullptr), S_OK);
    EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
    Do(config, p.put, u"algo");
    EXPECT_EQ((config.get()->*p.put)(nullptr), S_OK);
    EXPECT_EQ(Read(config, p.get), u"");
  }
}

TEST_F(CfgConmutTextsTest, EmptyOneIsHandedOutAsAText) {
  const auto config = NewConfig();
  BSTR text = reinterpret_cast<BSTR>(0x1234);
  ASSERT_EQ(config->get_Marca(&text), S_OK);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(SysStringLen(text), 0u);
  SysFreeString(text);
}

TEST_F(CfgConmutTextsTest, EachReadingBelongsToItsCaller) {
  const auto config = NewConfig();
  Do(config, &Cfg::put_Marca, u"ACME");
  BSTR first = nullptr;
  ASSERT_EQ(config->get_Marca(&first), S_OK);
  first[0] = L'X';
  SysFreeString(first);
  EXPECT_EQ(Read(config, &Cfg::get_Marca), u"ACME");
}

TEST_F(CfgConmutTextsTest, SeparatorIsListedByItsCodes) {
  const auto config = NewConfig();
  Do(config, &Cfg::put_Separador, u"\r\n");
  EXPECT_EQ(Read(config, &Cfg::get_ListaSeparador), u"13,10,0,0,0,0,0,0,0,0,");
  Do(config, &Cfg::put_Separador, TextView(u"A\0B", 3));
  EXPECT_EQ(Read(config, &Cfg::get_ListaSeparador), u"65,66,0,0,0,0,0,0,0,0,");
  Do(config, &Cfg::put_Separador, u"0123456789");
  EXPECT_EQ(Read(config, &Cfg::get_ListaSeparador), u"48,49,50,51,52,53,54,55,56,57,");
  if (GetACP() == 1252) {
    Do(config, &Cfg::put_Separador, u"ñ€\u4E2D");
    EXPECT_EQ(Read(config, &Cfg::get_ListaSeparador), u"241,128,63,0,0,0,0,0,0,0,");
  }
}

TEST_F(CfgConmutTextsTest, AreEmptiedByIniciar) {
  const auto config = NewConfig();
  for (const TextProperty& p : kTexts) Do(config, p.put, u"algo");
  Do(config, &Cfg::Iniciar);
  for (const TextProperty& p : kTexts) EXPECT_EQ(Read(config, p.get), u"") << p.name;
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
}

}  // namespace
}  // namespace conmuta::test
