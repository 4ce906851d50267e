// Our own reader and writer of profile files against what the machine uses, on files made at
// random. On a machine whose system has no profile functions both are the same.
#include <gtest/gtest.h>

#include "support/call_values.h"
#include "support/profile_site.h"
#include "support/random.h"

namespace conmuta {
namespace {

using namespace std::string_literals;

// What profile files are made of.
const std::string kTokens[] = {"[",    "]",  "[S]\n", "[T]\n", "S",     "T",  "a", "b",
                               "=",    "=",  "a=",    "b=",    ";",     "\"", "'", " ",
                               "\t",   "\v", "\f",    "\x1A",  "\n",    "\n", "1", "2",
                               "\xF1", "\n", "c=3\n", "A=",    "[s]x\n"};
const std::string kLineEnds[] = {"\r\n", "\n", "\r", "\n\r"};
const char* const kSections[] = {"S", "T", "a"};
const char* const kKeys[] = {"a", "b", "c", "1"};
const char* const kValues[] = {"7", "", " 8 ", "\"9\"", "'", "x=y", ";", "[S]"};

std::string RandomFile(test::Random& random, const std::string& line_end) {
  std::string bytes;
  for (int count = random.Below(40); count > 0; --count) {
    for (const char c : random.OneOf(kTokens)) {
      c == '\n' ? bytes += line_end : bytes += c;
    }
  }
  return bytes;
}

std::string Show(const std::string& bytes) {
  return test::Ascii(Text(bytes.begin(), bytes.end()));
}

TEST(ProfileAgreement, OnWhatIsReadAndWritten) {
  test::Random random(20261121);
  for (int round = 0; round < 400; ++round) {
    test::MemorySite ours;
    test::DiskSite machine;
    const std::string line_end = random.OneOf(kLineEnds);
    const std::string bytes = RandomFile(random, line_end);
    SCOPED_TRACE(Show(bytes));
    test::ProfileSite* const sites[] = {&ours, &machine};
    std::unique_ptr<ProfileFile> files[2];
    for (int i = 0; i < 2; ++i) {
      sites[i]->Put(u"file.ini", bytes);
      files[i] = sites[i]->platform().profiles.Open(sites[i]->Path(u"file.ini"));
    }
    const auto compare = [&] {
      for (const char* section : kSections) {
        for (const char* key : kKeys) {
          ASSERT_EQ(Show(files[0]->Read(section, key)), Show(files[1]->Read(section, key)))
              << section << " " << key;
        }
      }
    };
    ASSERT_NO_FATAL_FAILURE(compare());
    for (int writes = random.Below(3); writes > 0; --writes) {
      const char* section = random.OneOf(kSections);
      const char* key = random.OneOf(kKeys);
      const char* value = random.OneOf(kValues);
      SCOPED_TRACE(section + " "s + key + "="s + value);
      ASSERT_EQ(files[0]->Write({section, key, value}), files[1]->Write({section, key, value}));
      ASSERT_NO_FATAL_FAILURE(compare());
      if (HasFailure()) return;
    }
  }
}

}  // namespace
}  // namespace conmuta
