#pragma once

#include <string>

namespace house {

/// Draws the picture of an item, a PNG: the path "items/SUBJECT/NAME.png" tells what is on it, such as a cup,
/// and its name the shade. Empty when nobody can draw that.
std::string drawnPicture(const std::string& path);

} // namespace house
