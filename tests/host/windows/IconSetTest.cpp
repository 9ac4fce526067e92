// The host's pictures, decoded as the programs decode them.
#include "host/windows/IconSet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "plugin/contract/Tarnwell.h"
#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Host {
namespace {

constexpr int kCount = static_cast<int>(Icon::COUNT);

class IconSetTest : public testing::Test {
 protected:
  static std::vector<FXColor> pixelsOf(const FXIcon& icon) {
    const FXColor* data = icon.getData();
    if (!data) return {};
    return {data, data + icon.getWidth() * icon.getHeight()};
  }

  FXIcon* get(int number) const { return icons.get(static_cast<Icon>(number)); }

  IconSet icons{&testAccount()};
};

TEST_F(IconSetTest, holdsAPictureOfTheRightSizeForEveryIcon) {
  for (int i = 0; i < kCount; ++i) {
    const int size = static_cast<Icon>(i) == Icon::APPLICATION_32 ? 32 : 16;
    ASSERT_NE(get(i), nullptr) << i;
    EXPECT_NE(get(i)->getData(), nullptr) << i;
    EXPECT_EQ(get(i)->getWidth(), size) << i;
    EXPECT_EQ(get(i)->getHeight(), size) << i;
    EXPECT_EQ(get(i)->getApp(), &testAccount()) << i;
  }
}

TEST_F(IconSetTest, holdsPicturesWithTransparentSurroundings) {
  for (int i = 0; i < kCount; ++i) {
    const std::vector<FXColor> pixels = pixelsOf(*get(i));
    const auto transparent =
        std::count_if(pixels.begin(), pixels.end(), [](FXColor pixel) { return FXALPHAVAL(pixel) == 0; });
    EXPECT_GE(transparent, 16) << i;
    EXPECT_LE(transparent, static_cast<int>(pixels.size()) * 3 / 4) << i;
  }
}

TEST_F(IconSetTest, holdsPicturesThatDiffer) {
  for (int i = 0; i < kCount; ++i)
    for (int j = 0; j < i; ++j) EXPECT_NE(pixelsOf(*get(i)), pixelsOf(*get(j))) << i << " and " << j;
}

TEST_F(IconSetTest, hasTheAccountsPicturesToo) {
  ASSERT_NE(testAccount().getAddIcon(), nullptr);
  ASSERT_NE(testAccount().getDeleteIcon(), nullptr);
  EXPECT_EQ(pixelsOf(*testAccount().getAddIcon()), pixelsOf(*icons.get(Icon::ADD)));
  EXPECT_EQ(pixelsOf(*testAccount().getDeleteIcon()), pixelsOf(*icons.get(Icon::REMOVE)));
}

}  // namespace
}  // namespace Quillane::Host
