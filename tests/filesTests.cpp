// A study's files as they come: what is odd is taken as it was meant, or refused with a fault that names it.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "knowledge/modPatient.h"
#include "platform/pictures.h"
#include "tests/stage.h"

namespace {

class Files : public Logic {
protected:
    const std::string folder = study.folder + "/Patients";

    Files() {
        std::filesystem::remove(folder);  // the link to the pictures of all tests
        std::filesystem::create_directory(folder);
    }
    /// The fault that a file in the folder, or these bytes, give as a picture.
    std::string checked(const std::string& file) const {
        try {
            pictures::check(folder + file);
        } catch (const Fault& fault) {
            return fault.report;
        }
        return "";
    }
    std::string picture(const std::string& bytes) const {
        writeFile(folder + "/odd", bytes);
        return checked("/odd");
    }
    std::string intro(const std::string& bytes) const {
        writeFile(folder + "/odd", bytes);
        return modPatient::readIntroFile("odd");
    }
};

std::string bytesOf(const std::string& hex) {
    std::istringstream words(hex);
    std::string bytes;
    for (std::string pair(2, ' '); words >> pair[0] >> pair[1];)
        bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
    return bytes;
}

// A PNG, a JPEG, a GIF, a BMP, and a BMP whose rows are runs.
const char* const small =
    R"(
89504e470d0a1a0a0000000d4948445200000002000000020802000000fdd49a73000000164944415408d763fccfc0c0c0c0c0c4c0c0
c0c0c000000d1d01032be9a6c80000000049454e44ae426082;
ffd8ffdb00430050373c463c32504641465a55505f78c882786e6e78f5afb991c8ffffffffffffffffffffffffffffffffffffffffff
ffffffffffffffffffffffffffffffffffffc0000b080002000201011100ffc40014000100000000000000000000000000000000ffc4
0014100100000000000000000000000000000000ffda0008010100003f003fffd9;
47494638396102000200f00000ff00000000002c00000000020002000002028451003b;
424d46000000000000003600000028000000020000000200000001001800000000001000000000000000000000000000000000000000
0000ff0000ff00000000ff0000ff0000;
424d42000000000000003a00000028000000020000000200000001000800010000000800000000000000000000000100000000000000
0000ff000200000002000001)";

TEST_F(Files, APictureIsTakenWholeAndRefusedWhereverItIsCut) {
    const std::string invalid = "Run-time error '481':\nInvalid picture: " + folder + "/odd";
    std::istringstream all(small);
    std::string bytes;
    for (std::string hex; std::getline(all, hex, ';');) {
        bytes = bytesOf(hex);
        EXPECT_EQ(picture(bytes), "") << hex;
        for (std::size_t size = bytes.size(); size-- > 0;) {
            std::filesystem::resize_file(folder + "/odd", size);
            EXPECT_EQ(checked("/odd"), invalid) << hex << size;
        }
    }
    // Rows that end at once are whole at every size: here 7071 pixels square, and 7072, which are too many.
    bytes.replace(58, 8, bytesOf("0001"));
    EXPECT_EQ(picture(bytes.replace(18, 8, bytesOf("9f1b0000 9f1b0000"))), "");
    EXPECT_EQ(picture(bytes.replace(18, 8, bytesOf("a01b0000 a01b0000"))), invalid);
    EXPECT_EQ(picture("<svg/>"), invalid);
    EXPECT_EQ(checked(""), "Run-time error '53':\nFile not found: " + folder);
}

TEST_F(Files, AnIntroductionHasOneKindOfLineEndInEitherEncoding) {
    EXPECT_EQ(intro("a\rb\nc\r\nd\n\re"), "a\r\nb\r\nc\r\nd\r\n\r\ne\r\n");
    EXPECT_EQ(intro("a\u2028b\u2029"), "a\r\nb\r\n");
    EXPECT_EQ(intro("\x93na\xEFve\x94 \x96 \x81\xFF"), "\u201Cna\u00EFve\u201D \u2013 \uFFFD\u00FF\r\n");
    EXPECT_EQ(intro("\uFEFF\u201Cna\u00EFve\u201D"), "\u201Cna\u00EFve\u201D\r\n");
    // Half a surrogate pair, a character spelled too long: no UTF-8, and the toolkit counts them otherwise.
    EXPECT_EQ(intro("\xED\xA0\x80"), "\u00ED\u00A0\u20AC\r\n");
    EXPECT_EQ(intro("\xE0\x82\xA9"), "\u00E0\u201A\u00A9\r\n");
}

}  // namespace
