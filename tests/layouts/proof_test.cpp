// What the catalogue proves, compared with what somebody looked at: CONMUTA_APPROVE=1 takes over
// what it is now.
#include <gtest/gtest.h>

#include "layouts/catalogue.h"
#include "layouts/proof/matrix.h"
#include "layouts/proof/page.h"
#include "support/approved_file.h"

namespace conmuta::layouts {
namespace {

class CatalogueProof : public testing::Test {
 protected:
  static std::string Approved(const std::string& path, const std::string& made) {
    return test::ApprovedFile(CONMUTA_SOURCES "/" + path, made);
  }

  static const Matrix& Calls() {
    static const Matrix matrix = MatrixOf(Catalogue());
    return matrix;
  }
};

TEST_F(CatalogueProof, EveryLayoutOverEveryCaptureGivesTheApprovedCalls) {
  const std::string made = MatrixTable(Catalogue(), Calls());
  EXPECT_EQ(made, Approved("tests/layouts/approved/matrix.txt", made));
}

TEST_F(CatalogueProof, NoLayoutExplainsTheCaptureOfAnotherAsWellAsItsOwnDoes) {
  for (std::size_t i = 0; i < Catalogue().size(); ++i) {
    for (const std::size_t rival : Rivals(Calls(), i)) {
      ADD_FAILURE() << Catalogue()[rival].name << " does that of " << Catalogue()[i].name;
    }
  }
}

// They stand on the catalogue's page: one that grows is a layout that got worse.
TEST_F(CatalogueProof, DamagedLinesAreWrongAsSeldomAsApproved) {
  const std::string made = DamageTable(Catalogue(), CatalogueDamage());
  EXPECT_EQ(made, Approved("tests/layouts/approved/damage.txt", made));
}

TEST_F(CatalogueProof, ThePageSaysWhatTheFoldersSay) {
  const std::string made = CataloguePage(Catalogue(), CatalogueDamage());
  EXPECT_EQ(made, Approved("docs/switches.md", made));
}

}  // namespace
}  // namespace conmuta::layouts
