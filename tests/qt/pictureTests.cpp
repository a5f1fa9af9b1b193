// The pictures of the documents show the program of today: they are drawn anew and compared with the stored
// ones by the mean colour of small regions, which bears another rendering of the fonts but not another
// screen.
#include <gtest/gtest.h>

#include <QImage>
#include <array>
#include <cstdlib>
#include <filesystem>

#include "tests/temporaryStudy.h"

namespace fs = std::filesystem;

namespace {

constexpr int side = 32;            // pixels of a region
constexpr double tolerance = 16;    // of 255 in the mean of a colour
constexpr double mayDiffer = 0.01;  // share of all regions, for texts that break elsewhere

std::array<double, 3> meanColour(const QImage& picture, QRect region) {
    std::array<double, 3> sum{};
    for (int y = region.top(); y <= region.bottom(); ++y) {
        for (int x = region.left(); x <= region.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            sum[0] += qRed(pixel);
            sum[1] += qGreen(pixel);
            sum[2] += qBlue(pixel);
        }
    }
    for (double& part : sum) part /= region.width() * region.height();
    return sum;
}

bool looksAlike(const QImage& a, const QImage& b, QRect region) {
    const auto one = meanColour(a, region);
    const auto other = meanColour(b, region);
    for (std::size_t i = 0; i < one.size(); ++i) {
        if (std::abs(one[i] - other[i]) > tolerance) return false;
    }
    return true;
}

/// Share of the regions that differ.
double difference(const QImage& a, const QImage& b) {
    int regions = 0;
    int differing = 0;
    for (int y = 0; y < a.height(); y += side) {
        for (int x = 0; x < a.width(); x += side) {
            const QRect region = QRect(x, y, side, side).intersected(a.rect());
            ++regions;
            if (!looksAlike(a, b, region)) ++differing;
        }
    }
    return static_cast<double>(differing) / regions;
}

int countPictures(const fs::path& folder) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(folder))
        count += entry.path().extension() == ".png" ? 1 : 0;
    return count;
}

TEST(Pictures, AreThoseOfTodaysProgram) {
    const fs::path stored = fs::path(TAVIX_TESTS).parent_path() / "docs/pictures";
    const TemporaryStudy scratch(false);
    const std::string said = outputOf(std::string(TAVIX_TESTS) + "/../script/pictures " + scratch.folder +
                                      "/drawn " + TAVIX_BIN + " 2>&1");
    const fs::path drawn = scratch.folder + "/drawn";
    ASSERT_EQ(countPictures(drawn), countPictures(stored)) << said;
    for (const auto& entry : fs::directory_iterator(drawn)) {
        const std::string name = entry.path().filename().string();
        const QImage now(QString::fromStdString(entry.path().string()));
        const QImage before(QString::fromStdString((stored / name).string()));
        ASSERT_FALSE(now.isNull() || before.isNull()) << name;
        ASSERT_EQ(now.size(), before.size()) << name;
        EXPECT_LE(difference(now, before), mayDiffer)
            << name << ": draw it again with script/pictures, and look at it";
    }
}

}  // namespace
