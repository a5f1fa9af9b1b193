// drawEmblem SIDE FILE: the emblem as a picture of that many pixels, for the menus of the desktop.
#include <QImage>

#include "qt/emblem.h"

int main(int, char** argv) {
    const int side = QString(argv[1]).toInt();
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    emblem::paint(painter, image.rect());
    painter.end();
    return image.save(argv[2]) ? 0 : 1;
}
