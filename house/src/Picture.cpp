#include "src/Picture.h"

#include <array>
#include <cstdint>
#include <functional>

namespace house {
namespace {

constexpr int width = 120;
constexpr int height = 90;
constexpr int outerRadius = 36;
constexpr int innerRadius = 26;
constexpr char signature[] = "\x89PNG\r\n\x1a\n";

enum Colour : char { Ground, Rim, Plate };

std::string bigEndian(std::uint32_t number)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift & 0xff);
    return bytes;
}

std::uint32_t crc(const std::string& bytes)
{
    constexpr std::uint32_t polynomial = 0xedb88320;
    std::uint32_t sum = 0xffffffff;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? polynomial : 0);
    }
    return ~sum;
}

std::uint32_t adler(const std::string& bytes)
{
    constexpr std::uint32_t modulus = 65521;
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const char byte : bytes) {
        low = (low + static_cast<unsigned char>(byte)) % modulus;
        high = (high + low) % modulus;
    }
    return high << 16 | low;
}

std::string chunk(const std::string& type, const std::string& content)
{
    return bigEndian(static_cast<std::uint32_t>(content.size())) + type + content +
           bigEndian(crc(type + content));
}

/// As one block that isn't compressed; at most 65535 bytes.
std::string zlibStream(const std::string& bytes)
{
    const auto size = static_cast<std::uint16_t>(bytes.size());
    std::string stream = "\x78\x01\x01";
    for (const unsigned number : {unsigned{size}, ~unsigned{size}}) {
        stream += static_cast<char>(number & 0xff);
        stream += static_cast<char>(number >> 8 & 0xff);
    }
    return stream + bytes + bigEndian(adler(bytes));
}

/// One byte for each dot, every row behind a byte for its filter.
std::string dots()
{
    std::string rows;
    for (int y = 0; y < height; ++y) {
        rows += '\0';
        for (int x = 0; x < width; ++x) {
            const int dx = x - width / 2;
            const int dy = y - height / 2;
            const int square = dx * dx + dy * dy;
            rows += square < innerRadius * innerRadius   ? Plate
                    : square < outerRadius * outerRadius ? Rim
                                                         : Ground;
        }
    }
    return rows;
}

/// Red, green and blue of the three colours, all of them pale.
std::string palette(const std::string& name)
{
    const std::size_t hash = std::hash<std::string>()(name);
    std::array<int, 3> tint{};
    for (std::size_t i = 0; i < tint.size(); ++i)
        tint[i] = 150 + static_cast<int>(hash >> 8 * i & 0x3f);
    std::string colours;
    for (const int lighter : {30, 0, 40})
        for (const int part : tint)
            colours += static_cast<char>(part + lighter);
    return colours;
}

} // namespace

std::string pictureFor(const std::string& name)
{
    // Eight bits for each dot, from the palette; the rest are the only values there are.
    const std::string header = bigEndian(width) + bigEndian(height) + std::string("\x08\x03\0\0\0", 5);
    return signature + chunk("IHDR", header) + chunk("PLTE", palette(name)) +
           chunk("IDAT", zlibStream(dots())) + chunk("IEND", {});
}

} // namespace house
