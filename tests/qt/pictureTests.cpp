// The pictures of the documents show the program of today: they are drawn anew and compared with the stored
// ones, scaled down so that each pixel is the mean of a region: that bears another rendering of the fonts but
// not another screen.
#include <gtest/gtest.h>

#include <QImage>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "tests/temporaryStudy.h"

namespace fs = std::filesystem;

namespace {

constexpr int side = 32;            // pixels of a region
constexpr int tolerance = 16;       // of 255 in the mean of a colour
constexpr double mayDiffer = 0.01;  // share of all regions, for texts that break elsewhere

QImage regionsOf(const fs::path& file) {
    const QImage whole(QString::fromStdString(file.string()));
    return whole.scaled(whole.size() / side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool differ(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) > tolerance || std::abs(qGreen(a) - qGreen(b)) > tolerance ||
           std::abs(qBlue(a) - qBlue(b)) > tolerance;
}

std::set<std::string> picturesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".png") names.insert(entry.path().filename().string());
    return names;
}

TEST(Pictures, AreThoseOfTodaysProgram) {
    const std::string stored = TAVIX_TESTS "/../docs/pictures";
    const TemporaryStudy scratch(false);
    const std::string drawn = scratch.folder + "/drawn";
    const std::string said = outputOf(TAVIX_TESTS "/../script/pictures " + drawn + " " TAVIX_BIN + " 2>&1");
    ASSERT_EQ(picturesIn(drawn), picturesIn(stored)) << said;
    for (const std::string& name : picturesIn(drawn)) {
        const QImage now = regionsOf(fs::path(drawn) / name);
        const QImage before = regionsOf(fs::path(stored) / name);
        ASSERT_EQ(now.size(), before.size()) << name;
        int differing = 0;
        for (int y = 0; y < now.height(); ++y)
            for (int x = 0; x < now.width(); ++x)
                differing += differ(now.pixel(x, y), before.pixel(x, y)) ? 1 : 0;
        EXPECT_LE(differing, mayDiffer * now.width() * now.height())
            << name << ": draw it again with script/pictures, and look at it";
    }
}

}  // namespace
