// The pictures behind the frame that the program brings along, drawn when they are wanted.
#pragma once

#include <QPixmap>
#include <QString>

namespace desktop {

// The picture of that file, whatever its size. Where there is no such file, one of the program's own by the
// file's name (SfondoLogoDorlen.bmp, SfondoTV1.bmp, SfondoTV2.bmp); null for any other path that leads
// nowhere.
QPixmap backgroundOf(const QString& path);

}  // namespace desktop
