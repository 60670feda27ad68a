#include <gtest/gtest.h>

#include <QImage>

#include "adapters/posix/posix_file_store.h"
#include "adapters/qt/bitmap_image.h"
#include "adapters/qt/picture_exchange.h"
#include "capture/bmp_file.h"
#include "tests/desktop/rig/child_process.h"
#include "tests/desktop/rig/pixmap_file.h"
#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {
namespace {

// Other programs go by that name too.
bool isConvertOfImageMagick() {
  return areInstalled({"convert"}) &&
         outputOf({"convert", "-version"}).value_or("").find("ImageMagick") != std::string::npos;
}

// A picture whose points all differ, and a folder for its files.
class SavedBitmap : public testing::Test {
 protected:
  SavedBitmap() : bitmap(platform::blackBitmap(37, 23)) {
    std::uint32_t value = 1;
    for (std::uint32_t& pixel : bitmap.pixels) pixel = (value = value * 1103515245 + 12345) & 0xFFFFFFU;
  }

  std::string save(const std::string& name, const std::string& bytes) {
    const std::string path = (folder / name).string();
    EXPECT_EQ(store.replace(path, bytes), platform::FileReplace::kDone);
    return path;
  }

  platform::Bitmap bitmap;
  TemporaryFolder folder;
  adapters::PosixFileStore store;
};

// Another program's view of the bitmap files, and ours of its.
class SavedBitmapElsewhere : public SavedBitmap {
 protected:
  void SetUp() override {
    if (!isConvertOfImageMagick()) GTEST_SKIP() << "without ImageMagick";
  }

  static platform::Bitmap seenByOthers(const std::string& path) {
    return fromPixmapFile(outputOf({"convert", path, "-depth", "8", "ppm:-"}).value_or(""));
  }

  // What the viewer reads of a file that the other program made of the picture by these options, of the kind
  // that `kind` ("bmp3:") names.
  platform::Bitmap ours(const std::vector<std::string>& options, const std::string& kind) {
    const std::string target = (folder / "target.bmp").string();
    std::vector<std::string> command{"convert", save("source.bmp", capture::bmpFile(bitmap))};
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(kind + target);
    EXPECT_TRUE(outputOf(command));
    theirs = seenByOthers(target);
    return capture::readBmp(store.read(target, capture::kLongestBmpFile).bytes).bitmap;
  }

  platform::Bitmap theirs;
};

TEST_F(SavedBitmapElsewhere, IsReadByOthersWithTheSamePixels) {
  const std::string path = save("a.bmp", capture::bmpFile(bitmap));
  EXPECT_EQ(seenByOthers(path), bitmap);
  EXPECT_EQ(adapters::bitmapOf(QImage(QString::fromStdString(path))), bitmap);
}

TEST_F(SavedBitmapElsewhere, SavedAsPngIsReadByOthersWithTheSamePixels) {
  const std::string path = save("a.png", adapters::QtPngEncoder().encode(bitmap));
  EXPECT_EQ(seenByOthers(path), bitmap);
}

TEST_F(SavedBitmapElsewhere, EachKindThatOthersWriteIsRead) {
  struct Kind {
    const char* name;
    std::vector<std::string> options;
    const char* kind;
  };
  const std::vector<Kind> kKinds{
      {"long header", {}, "bmp:"},
      {"usual header", {}, "bmp3:"},
      {"oldest header", {}, "bmp2:"},
      {"32 bits", {"-alpha", "set"}, "bmp:"},
      {"8 bits", {"-colors", "200", "-type", "Palette"}, "bmp3:"},
      {"8 bits in runs", {"-colors", "20", "-type", "Palette", "-compress", "RLE"}, "bmp3:"},
      {"4 bits", {"-colors", "12", "-type", "Palette"}, "bmp3:"},
      {"1 bit", {"-colorspace", "Gray", "-threshold", "50%", "-type", "Bilevel"}, "bmp3:"},
      {"16 bits", {"-define", "bmp:subtype=RGB565"}, "bmp:"},
      {"15 bits", {"-define", "bmp:subtype=RGB555"}, "bmp:"}};
  for (const Kind& kind : kKinds) {
    const platform::Bitmap read = ours(kind.options, kind.kind);
    EXPECT_FALSE(read.empty()) << kind.name;
    EXPECT_EQ(differences(read, theirs), 0) << kind.name;
  }
}

TEST_F(SavedBitmap, EachKindThatTheToolkitWritesIsRead) {
  for (const QImage::Format format :
       {QImage::Format_RGB32, QImage::Format_RGB888, QImage::Format_Indexed8, QImage::Format_Mono}) {
    const QImage image = adapters::imageOf(bitmap).convertToFormat(format);
    const QString path = QString::fromStdString((folder / "qt.bmp").string());
    ASSERT_TRUE(image.save(path, "BMP"));
    const auto file = store.read(path.toStdString(), capture::kLongestBmpFile);
    EXPECT_EQ(capture::readBmp(file.bytes).bitmap, adapters::bitmapOf(image)) << format;
  }
}

}  // namespace
}  // namespace vireon::tests
