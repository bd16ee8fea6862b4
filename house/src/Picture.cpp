#include "src/Picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <vector>

namespace house {
namespace {

constexpr int width = 210;
constexpr int height = 140;
constexpr int samples = 2; ///< per pixel and axis

struct Colour
{
    double red = 0, green = 0, blue = 0; ///< 0 to 1
};

/// What the colours of a drawing are for.
enum Paint : int { Ground, Ink, Middle, Pale, White, Accent, Paints };

/// Coordinates are shares of the picture's height, so that it is 1.5 wide; y goes down.
struct Shape
{
    enum Kind { Oval, Bowl, Box } kind; ///< a bowl is an oval's lower half
    double x, y, halfWidth, halfHeight;
    Paint paint;
};

struct Drawing
{
    double hue; ///< of the ink, in turns
    std::vector<Shape> shapes;
};

const std::map<std::string, Drawing>& drawings()
{
    using S = Shape;
    static const std::map<std::string, Drawing> all{
        {"basin",
         {.08,
          {{S::Bowl, .75, .5, .5, .36, Ink},
           {S::Oval, .75, .5, .5, .14, Middle},
           {S::Oval, .75, .51, .43, .1, Pale},
           {S::Oval, .62, .4, .09, .16, Accent},
           {S::Oval, .88, .4, .09, .16, Accent}}}},
        {"stones",
         {.55,
          {{S::Oval, .75, .76, .4, .11, Ink},
           {S::Oval, .75, .58, .31, .1, Middle},
           {S::Oval, .75, .42, .22, .085, Ink},
           {S::Oval, .75, .29, .13, .06, Middle},
           {S::Oval, .75, .19, .05, .04, Accent}}}},
        {"flower",
         {.88,
          {{S::Oval, .75, .27, .12, .16, Middle},
           {S::Oval, .52, .4, .15, .13, Ink},
           {S::Oval, .98, .4, .15, .13, Ink},
           {S::Oval, .6, .64, .14, .14, Middle},
           {S::Oval, .9, .64, .14, .14, Middle},
           {S::Oval, .75, .48, .11, .11, Accent}}}},
        {"bucket",
         {.52,
          {{S::Box, .75, .6, .3, .24, Ink},
           {S::Oval, .75, .36, .33, .09, Middle},
           {S::Oval, .63, .3, .09, .09, White},
           {S::Oval, .8, .26, .12, .12, White},
           {S::Oval, .95, .33, .07, .07, White},
           {S::Box, .75, .56, .3, .03, Accent}}}},
        {"cup",
         {.3,
          {{S::Oval, .72, .82, .45, .07, Middle},
           {S::Oval, 1.0, .54, .15, .14, White},
           {S::Oval, 1.0, .54, .09, .08, Ground},
           {S::Bowl, .7, .36, .3, .42, White},
           {S::Oval, .7, .36, .3, .08, Pale},
           {S::Oval, .7, .37, .25, .055, Accent}}}},
        {"glass",
         {.58,
          {{S::Box, .84, .3, .022, .25, Ink},
           {S::Box, .75, .53, .2, .35, White},
           {S::Box, .75, .6, .17, .26, Accent},
           {S::Oval, .95, .24, .11, .11, Middle},
           {S::Oval, .95, .24, .07, .07, Pale},
           {S::Oval, .68, .55, .04, .04, White},
           {S::Oval, .8, .67, .03, .03, White}}}},
        {"bottle",
         {.38,
          {{S::Box, .75, .3, .06, .2, Ink},
           {S::Box, .75, .66, .15, .24, Ink},
           {S::Oval, .75, .44, .15, .1, Ink},
           {S::Box, .75, .66, .15, .11, White},
           {S::Box, .75, .66, .11, .02, Accent},
           {S::Box, .75, .12, .07, .035, Accent}}}},
        {"plate",
         {.04,
          {{S::Oval, .75, .6, .56, .3, White},
           {S::Oval, .75, .58, .44, .21, Pale},
           {S::Oval, .6, .5, .14, .12, Ink},
           {S::Oval, .88, .48, .15, .12, Middle},
           {S::Oval, .75, .62, .16, .11, Accent},
           {S::Oval, .7, .42, .07, .06, White}}}},
        {"bowl",
         {.02,
          {{S::Box, 1.02, .26, .016, .24, Middle},
           {S::Box, 1.09, .28, .016, .24, Middle},
           {S::Bowl, .75, .46, .46, .42, Ink},
           {S::Box, .75, .86, .16, .035, Ink},
           {S::Oval, .75, .46, .46, .12, Pale},
           {S::Oval, .75, .46, .41, .09, Accent},
           {S::Oval, .63, .44, .09, .035, White},
           {S::Oval, .88, .47, .08, .03, Middle}}}},
        {"fish",
         {.56,
          {{S::Oval, .75, .6, .6, .27, White},
           {S::Oval, .75, .58, .5, .2, Pale},
           {S::Oval, .7, .56, .33, .13, Ink},
           {S::Oval, 1.08, .49, .08, .07, Middle},
           {S::Oval, 1.08, .63, .08, .07, Middle},
           {S::Oval, .72, .48, .12, .05, Middle},
           {S::Oval, .5, .54, .03, .03, White},
           {S::Oval, .85, .62, .05, .03, Accent}}}},
        {"towel",
         {.6,
          {{S::Box, .75, .72, .44, .1, Ink},
           {S::Box, .75, .52, .41, .085, Middle},
           {S::Box, .75, .35, .37, .07, White},
           {S::Box, 1.02, .72, .03, .1, Accent},
           {S::Box, 1.0, .52, .03, .085, Pale}}}},
        {"leaf",
         {.36,
          {{S::Oval, .54, .55, .15, .26, Middle},
           {S::Oval, .96, .55, .15, .26, Middle},
           {S::Oval, .75, .45, .15, .33, Ink},
           {S::Box, .75, .6, .012, .3, Pale},
           {S::Oval, .75, .84, .06, .05, Accent}}}},
        {"ticket",
         {.12,
          {{S::Box, .75, .52, .5, .24, Ink},
           {S::Oval, .25, .52, .08, .08, Ground},
           {S::Oval, 1.25, .52, .08, .08, Ground},
           {S::Box, .6, .44, .22, .03, White},
           {S::Box, .6, .56, .22, .03, Pale},
           {S::Oval, 1.02, .52, .1, .1, Accent}}}},
        {"parcel",
         {.1,
          {{S::Box, .75, .58, .36, .27, Middle},
           {S::Box, .75, .38, .4, .09, Ink},
           {S::Box, .75, .56, .055, .29, Accent},
           {S::Oval, .65, .24, .1, .07, Accent},
           {S::Oval, .85, .24, .1, .07, Accent}}}},
    };
    return all;
}

/// By hue, saturation and lightness.
Colour colourOf(double hue, double saturation, double lightness)
{
    const auto part = [&](double turn) {
        const double k = std::fmod(turn + hue * 12, 12);
        return lightness -
               saturation * std::min(lightness, 1 - lightness) * std::max(-1.0, std::min({k - 3, 9 - k, 1.0}));
    };
    return {part(0), part(8), part(4)};
}

std::array<Colour, Paints> paintsOf(double hue)
{
    return {Colour{1, 1, 1},         colourOf(hue, .5, .38), colourOf(hue, .5, .6),
            colourOf(hue, .45, .83), colourOf(hue, .3, .93), colourOf(hue + .42, .7, .56)};
}

bool isInside(const Shape& shape, double x, double y)
{
    const double across = (x - shape.x) / shape.halfWidth;
    const double down = (y - shape.y) / shape.halfHeight;
    if (shape.kind == Shape::Box)
        return std::abs(across) <= 1 && std::abs(down) <= 1;
    return across * across + down * down <= 1 && (shape.kind == Shape::Oval || down >= 0);
}

Paint paintAt(const Drawing& drawing, double x, double y)
{
    for (auto shape = drawing.shapes.rbegin(); shape != drawing.shapes.rend(); ++shape)
        if (isInside(*shape, x, y))
            return shape->paint;
    return Ground;
}

/// Rows of a PNG: each begins with its filter, none.
std::string rowsOf(const Drawing& drawing, const std::array<Colour, Paints>& paints)
{
    std::string rows;
    for (int row = 0; row < height; ++row) {
        rows += '\0';
        for (int column = 0; column < width; ++column) {
            Colour sum;
            for (int sample = 0; sample < samples * samples; ++sample) {
                const double x = (column + (sample % samples + .5) / samples) / height;
                const double y = (row + (sample / samples + .5) / samples) / height;
                const Colour& colour = paints[paintAt(drawing, x, y)];
                sum = {sum.red + colour.red, sum.green + colour.green, sum.blue + colour.blue};
            }
            for (const double part : {sum.red, sum.green, sum.blue})
                rows += static_cast<char>(std::lround(part * 255 / (samples * samples)));
        }
    }
    return rows;
}

std::string bigEndian(std::uint32_t number)
{
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text += static_cast<char>(number >> shift & 0xff);
    return text;
}

std::uint32_t crcOf(const std::string& bytes)
{
    std::uint32_t crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xedb88320 : 0);
    }
    return ~crc;
}

std::string chunk(const std::string& type, const std::string& data)
{
    return bigEndian(static_cast<std::uint32_t>(data.size())) + type + data + bigEndian(crcOf(type + data));
}

/// The zlib format with its data as they are.
std::string stored(const std::string& data)
{
    constexpr std::size_t mostOfBlock = 0xffff;
    std::string packed = "\x78\x01";
    std::uint32_t low = 1, high = 0;
    for (const char byte : data) {
        low = (low + static_cast<unsigned char>(byte)) % 65521;
        high = (high + low) % 65521;
    }
    for (std::size_t at = 0; at < data.size(); at += mostOfBlock) {
        const std::string block = data.substr(at, mostOfBlock);
        packed += at + mostOfBlock >= data.size() ? '\1' : '\0';
        for (const std::size_t size : {block.size(), ~block.size()})
            packed += {static_cast<char>(size & 0xff), static_cast<char>(size >> 8 & 0xff)};
        packed += block;
    }
    return packed + bigEndian(high << 16 | low);
}

} // namespace

std::string drawnPicture(const std::string& path)
{
    const std::size_t nameAt = path.rfind('/');
    const std::size_t subjectAt = nameAt == std::string::npos ? nameAt : path.rfind('/', nameAt - 1);
    if (subjectAt == std::string::npos)
        return {};
    const auto found = drawings().find(path.substr(subjectAt + 1, nameAt - subjectAt - 1));
    if (found == drawings().end())
        return {};
    constexpr double hueSpread = .16;
    const double shade = static_cast<double>(crcOf(path.substr(nameAt)) % 100) / 100 - .5;
    const auto paints = paintsOf(found->second.hue + shade * hueSpread + 1);
    return "\x89PNG\r\n\x1a\n" +
           chunk("IHDR", bigEndian(width) + bigEndian(height) + std::string("\x08\x02\0\0\0", 5)) +
           chunk("IDAT", stored(rowsOf(found->second, paints))) + chunk("IEND", {});
}

} // namespace house
