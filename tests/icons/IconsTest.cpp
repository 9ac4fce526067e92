// The images compiled into the module, decoded as the module decodes them.
#include "icons/icons.h"

#include <fx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

using namespace FX;

namespace {

struct Image {
  const char* name;
  const unsigned char* bytes;
};

const Image kImages[] = {{"icon_itemdata", icon_itemdata}, {"icon_opt_text", icon_opt_text},
                         {"icon_opt_list", icon_opt_list}, {"icon_opt_date", icon_opt_date},
                         {"icon_mdt_text", icon_mdt_text}, {"icon_mdt_list", icon_mdt_list},
                         {"icon_mdt_date", icon_mdt_date}};

bool isTransparent(FXColor pixel) { return FXALPHAVAL(pixel) == 0; }

// Red enough to be seen as an accent.
bool isRed(FXColor pixel) {
  return !isTransparent(pixel) && FXREDVAL(pixel) > 180 && FXGREENVAL(pixel) < 80 && FXBLUEVAL(pixel) < 80;
}

class Icons : public testing::Test {
 protected:
  // Without a display: nothing is ever created on one.
  Icons() : application("IconsTest", "Quillane") {
    char program[] = "test_icons";
    char* arguments[] = {program, nullptr};
    int count = 1;
    application.init(count, arguments, FALSE);
  }

  std::unique_ptr<FXGIFIcon> decode(const unsigned char* bytes) {
    return std::make_unique<FXGIFIcon>(&application, bytes, FXRGB(192, 192, 192), 0, 1, 1);
  }

  // All pixels row by row; empty when the image could not be decoded.
  std::vector<FXColor> pixels(const unsigned char* bytes) {
    const std::unique_ptr<FXGIFIcon> icon = decode(bytes);
    const FXColor* data = icon->getData();
    if (data == nullptr) return {};
    return {data, data + icon->getWidth() * icon->getHeight()};
  }

  FXApp application;
};

TEST_F(Icons, areSixteenPixelsWideAndHigh) {
  for (const Image& image : kImages) {
    const std::unique_ptr<FXGIFIcon> icon = decode(image.bytes);
    EXPECT_NE(icon->getData(), nullptr) << image.name;
    EXPECT_EQ(icon->getWidth(), 16) << image.name;
    EXPECT_EQ(icon->getHeight(), 16) << image.name;
  }
}

TEST_F(Icons, haveTransparentAndOpaquePixels) {
  for (const Image& image : kImages) {
    const std::vector<FXColor> colours = pixels(image.bytes);
    const auto transparent = std::count_if(colours.begin(), colours.end(), isTransparent);
    EXPECT_GE(transparent, 16) << image.name;
    EXPECT_GE(static_cast<int>(colours.size()) - transparent, 100) << image.name;
  }
}

TEST_F(Icons, sayThatTheirFirstColourIsTransparent) {
  // The toolkit takes the first colour as transparent also when the image does not say so; other readers do not.
  for (const Image& image : kImages) {
    const unsigned char* palette = image.bytes + 13;
    const unsigned char* extension = palette + 3 * (2 << (image.bytes[10] & 7));
    const std::vector<int> head(extension, extension + 3);
    EXPECT_EQ(head, (std::vector<int>{0x21, 0xF9, 4})) << image.name;
    EXPECT_EQ(extension[3] & 1, 1) << image.name;
    EXPECT_EQ(extension[6], 0) << image.name;
  }
}

TEST_F(Icons, useTheTransparentColourForTransparentPixelsAlone) {
  const FXColor background = FXRGB(192, 192, 192) & FXRGBA(255, 255, 255, 0);
  for (const Image& image : kImages) {
    for (const FXColor pixel : pixels(image.bytes))
      EXPECT_EQ(isTransparent(pixel), (pixel & FXRGBA(255, 255, 255, 0)) == background) << image.name;
  }
}

TEST_F(Icons, differFromOneAnother) {
  for (const Image& left : kImages) {
    for (const Image& right : kImages) {
      if (left.name == right.name) continue;
      const std::vector<FXColor> a = pixels(left.bytes);
      const std::vector<FXColor> b = pixels(right.bytes);
      ASSERT_EQ(a.size(), b.size());
      int different = 0;
      for (size_t i = 0; i < a.size(); ++i) different += a[i] != b[i];
      EXPECT_GE(different, 30) << left.name << " and " << right.name;
    }
  }
}

TEST_F(Icons, markTheMandatoryKindsInRed) {
  for (const Image& image : kImages) {
    const std::vector<FXColor> colours = pixels(image.bytes);
    const auto red = std::count_if(colours.begin(), colours.end(), isRed);
    const bool mandatory = std::string(image.name).rfind("icon_mdt_", 0) == 0;
    if (mandatory) {
      EXPECT_GE(red, 8) << image.name;
    } else {
      EXPECT_EQ(red, 0) << image.name;
    }
  }
}

}  // namespace
