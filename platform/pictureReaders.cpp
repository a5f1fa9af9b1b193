#include "platform/pictureReaders.h"

#include <gif_lib.h>
#include <jerror.h>
#include <jpeglib.h>
#include <png.h>

#include <csetjmp>
#include <vector>

namespace pictureReaders {

namespace {

// The libraries of PNG and JPEG report a failure by a jump. The functions that are jumped out of keep nothing
// that would have to be destroyed; their callers release what they use.

[[noreturn]] void leavePng(png_structp png, png_const_charp /*reason*/) { png_longjmp(png, 1); }
void ignorePngWarning(png_structp /*png*/, png_const_charp /*reason*/) {}

bool decodePng(png_structp png, png_infop info, std::FILE* file) {
    if (setjmp(png_jmpbuf(png)) != 0) return false;
    png_init_io(png, file);
    // Texts, profiles and the like are skipped: the library believes the lengths that they give themselves.
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_read_info(png, info);
    const png_uint_32 height = png_get_image_height(png, info);
    if (!fits(png_get_image_width(png, info), height)) return false;
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    for (int pass = 0; pass < passes; ++pass) {
        for (png_uint_32 row = 0; row < height; ++row) png_read_row(png, nullptr, nullptr);
    }
    png_read_end(png, info);
    return true;
}

[[noreturn]] void leaveJpeg(j_common_ptr jpeg) {
    std::longjmp(*static_cast<std::jmp_buf*>(jpeg->client_data), 1);
}

/// Level -1 is damage, which the library paints over. Where the data end too early, that is our end too; a
/// few superfluous bytes, which cameras leave, are none.
void heedJpeg(j_common_ptr jpeg, int level) {
    const int code = jpeg->err->msg_code;
    if (level < 0 && (code == JWRN_JPEG_EOF || code == JWRN_HIT_MARKER)) leaveJpeg(jpeg);
}

bool decodeJpeg(jpeg_decompress_struct& jpeg, std::FILE* file, std::vector<JSAMPLE>& row) {
    jpeg_stdio_src(&jpeg, file);
    jpeg_read_header(&jpeg, TRUE);
    if (!fits(jpeg.image_width, jpeg.image_height)) return false;
    if (jpeg.num_components != 1 && jpeg.num_components != 3 && jpeg.num_components != 4) return false;
    jpeg.scale_denom = 8;  // every byte is read, and few pixels are reckoned
    jpeg_start_decompress(&jpeg);
    row.resize(std::size_t{jpeg.output_width} * static_cast<std::size_t>(jpeg.output_components));
    JSAMPROW rows = row.data();
    while (jpeg.output_scanline < jpeg.output_height) jpeg_read_scanlines(&jpeg, &rows, 1);
    jpeg_finish_decompress(&jpeg);
    return true;
}

bool tryJpeg(jpeg_decompress_struct& jpeg, std::FILE* file, std::vector<JSAMPLE>& row) {
    return setjmp(*static_cast<std::jmp_buf*>(jpeg.client_data)) == 0 && decodeJpeg(jpeg, file, row);
}

int readGifBytes(GifFileType* gif, GifByteType* bytes, int count) {
    return static_cast<int>(
        std::fread(bytes, 1, static_cast<std::size_t>(count), static_cast<std::FILE*>(gif->UserData)));
}

bool passGifExtension(GifFileType* gif) {
    int code = 0;
    GifByteType* block = nullptr;
    bool good = DGifGetExtension(gif, &code, &block) == GIF_OK;
    while (good && block != nullptr) good = DGifGetExtensionNext(gif, &block) == GIF_OK;
    return good;
}

/// The first frame is what is shown, and is decoded; of the others only their presence counts.
bool readGifFrame(GifFileType* gif, bool isFirst) {
    if (DGifGetImageDesc(gif) != GIF_OK || !fits(gif->Image.Width, gif->Image.Height)) return false;
    bool good = true;
    if (isFirst) {
        std::vector<GifPixelType> row(static_cast<std::size_t>(gif->Image.Width));
        for (int i = 0; good && i < gif->Image.Height; ++i)
            good = DGifGetLine(gif, row.data(), gif->Image.Width) == GIF_OK;
        return good;
    }
    int size = 0;
    GifByteType* block = nullptr;
    good = DGifGetCode(gif, &size, &block) == GIF_OK;
    while (good && block != nullptr) good = DGifGetCodeNext(gif, &block) == GIF_OK;
    return good;
}

bool decodeGif(GifFileType* gif) {
    if (!fits(gif->SWidth, gif->SHeight)) return false;
    for (int frames = 0;;) {
        GifRecordType record = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(gif, &record) != GIF_OK) return false;
        if (record == TERMINATE_RECORD_TYPE) return frames > 0;
        const bool isFrame = record == IMAGE_DESC_RECORD_TYPE;
        if (!(isFrame ? readGifFrame(gif, frames++ == 0) : passGifExtension(gif))) return false;
    }
}

}  // namespace

bool fits(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width <= mostPixels && height <= mostPixels &&
           width * height <= mostPixels;
}

bool readPng(std::FILE* file) {
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, leavePng, ignorePngWarning);
    if (png == nullptr) return false;
    png_infop info = png_create_info_struct(png);
    const bool whole = info != nullptr && decodePng(png, info, file);
    png_destroy_read_struct(&png, &info, nullptr);
    return whole;
}

bool readJpeg(std::FILE* file) {
    jpeg_error_mgr errors{};
    jpeg_decompress_struct jpeg{};
    jpeg.err = jpeg_std_error(&errors);
    errors.error_exit = leaveJpeg;
    errors.emit_message = heedJpeg;
    jpeg_create_decompress(&jpeg);
    std::jmp_buf start;
    jpeg.client_data = &start;
    std::vector<JSAMPLE> row;
    const bool whole = tryJpeg(jpeg, file, row);
    jpeg_destroy_decompress(&jpeg);
    return whole;
}

bool readGif(std::FILE* file) {
    GifFileType* gif = DGifOpen(file, readGifBytes, nullptr);
    if (gif == nullptr) return false;
    const bool whole = decodeGif(gif);
    DGifCloseFile(gif, nullptr);
    return whole;
}

}  // namespace pictureReaders
