#include <gtest/gtest.h>

#include "models/shell/error_list_model.h"

using namespace mirvane;

TEST(ErrorList, TextHasPathBannerAndLog) {
    EXPECT_EQ(ErrorWindowText("/m/a.typ", "\r\nLigne 3 : \"x\""),
              "Erreurs rencontrées dans le fichier  : /m/a.typ\r\n" + std::string(150, '*') +
                  "\r\n\r\n\r\nLigne 3 : \"x\"");
}
