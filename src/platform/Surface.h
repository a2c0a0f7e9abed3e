#pragma once
// An off-screen image that painters draw on: copy, line, polyline, points, filled box, column
// runs and text. Coordinates are device pixels from the top left. A surface that could not be
// created is null, and drawing on a null surface (or past an edge) does nothing.
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

using Colour = std::uint32_t;  // 0xRRGGBB

struct PixelPoint {
    std::int32_t X, Y;
};

// The part of one pixel column that a curve covers, in fractional rows, Top <= Bottom.
// An empty run has Top > Bottom.
struct ColumnRun {
    float Top, Bottom;
};

enum class DrawMode { Copy, NotXor };  // NotXor: a second drawing of the same shape removes it
enum class TextAlign { Left, Centre, Right };

struct SurfaceData;

class Surface {
public:
    Surface();
    ~Surface();
    Surface(Surface&&) noexcept;
    Surface& operator=(Surface&&) noexcept;

    /// Makes the image, width x height device pixels, black. `scale` is device pixels per logical
    /// pixel; texts and marks grow with it. False, and null, when the image cannot be made.
    bool Create(std::int32_t width, std::int32_t height, double scale = 1.0);
    void Free();
    bool IsNull() const { return data_ == nullptr; }
    std::int32_t Width() const;
    std::int32_t Height() const;
    double Scale() const;

    void Fill(Colour colour);
    /// Copies the whole of `source` with its top left corner at (x, y), whatever the mode.
    void CopyFrom(const Surface& source, std::int32_t x = 0, std::int32_t y = 0);
    /// Copies columns left..right of a source of the same size, whatever the mode.
    void CopyColumns(const Surface& source, std::int32_t left, std::int32_t right);
    void SetMode(DrawMode mode);
    /// One-pixel line, both ends included.
    void Line(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, Colour colour,
              bool dashed = false);
    void Polyline(std::span<const PixelPoint> points, Colour colour);
    /// Sets single pixels; points past an edge are dropped. Copy mode only.
    void Points(std::span<const PixelPoint> points, Colour colour);
    /// Filled box, all four edges included.
    void FillBox(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
                 Colour colour);
    /// Fills runs of rows in the columns x0, x0 + 1, ...; `samples` runs stand side by side in each
    /// column. A pixel is blended by the share of it that the runs cover. Copy mode only.
    void FillColumns(std::int32_t x0, std::span<const ColumnRun> runs, std::int32_t samples,
                     Colour colour);
    /// Writes UTF-8 text of `size` logical pixels, vertically centred on `y`.
    void Text(std::int32_t x, std::int32_t y, std::string_view text, Colour colour, TextAlign align,
              double size);
    std::int32_t TextWidth(std::string_view text, double size) const;

    /// The colour at a pixel; 0 on a null surface or outside.
    Colour Pixel(std::int32_t x, std::int32_t y) const;

    /// Writes the image as a bitmap file of 24 bits to the pixel, in place of what stands at the
    /// path. Returns an empty text, or what went wrong; the file at the path is then as it was.
    std::string SaveBitmap(const std::string& path) const;

    SurfaceData* Data() const { return data_.get(); }  // for the windows that show the image

private:
    std::unique_ptr<SurfaceData> data_;
};
