// The picture behind the frame: what its path leads to, and where it leads nowhere.
#include "desktop/backgrounds.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

#include "desktop/area.h"
#include "desktop/screen.h"
#include "tools/scratch.h"

TEST_CASE("a path that leads to no picture leaves the ground as it is, and the frame is drawn") {
  test::application();
  const test::Scratch scratch;
  const auto path = [&](const char* name) {
    return QString::fromStdString((scratch.path() / name).string());
  };
  QImage(64, 48, QImage::Format_RGB32).save(path("intera.bmp"));
  std::filesystem::copy_file(scratch.path() / "intera.bmp", scratch.path() / "testata.bmp");
  std::filesystem::resize_file(scratch.path() / "testata.bmp", 20);  // within its own head
  std::ofstream(scratch.path() / "testo.jpg") << "nessuna immagine";
  std::ofstream(scratch.path() / "vuota.bmp");
  std::filesystem::create_directory(scratch.path() / "cartella.bmp");
  for (const QString& nowhere :
       {path("manca.bmp"), path("testo.jpg"), path("vuota.bmp"), path("testata.bmp"), path("cartella.bmp"),
        QString("/manca/del/tutto.bmp"), QString(QChar(0)), QString(100'000, 'x'), QString()}) {
    CAPTURE(nowhere.left(40).toStdString());
    CHECK(desktop::backgroundOf(nowhere).isNull());
    desktop::Area area;
    area.resize(300, 200);
    area.setGround(0, nowhere);
    CHECK_FALSE(area.grab().isNull());
  }
  CHECK(desktop::backgroundOf(path("intera.bmp")).size() == QSize(64, 48));
  CHECK_FALSE(desktop::backgroundOf(path("SfondoTV1.bmp")).isNull());  // drawn by the program itself
}
