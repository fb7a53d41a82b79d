// Draws the picture that the host's toolbar shows for the editor into the file that is named.

#include <QFile>
#include <QImage>
#include <QPainter>
#include <cstdlib>

#include "app/window/ProgramIcon.h"

int main(int argc, char** argv) {
    constexpr int kSize = 16;
    // Of a toolbar's buttons in the host's days.
    constexpr QRgb kGround = 0xffc0c0c0;
    if (argc != 2) return EXIT_FAILURE;
    QImage image(kSize, kSize, QImage::Format_RGB888);
    image.fill(kGround);
    {
        QPainter painter(&image);
        klt::drawProgramIcon(painter, image.rect());
    }
    return image.save(QFile::decodeName(argv[1]), "BMP") ? EXIT_SUCCESS : EXIT_FAILURE;
}
