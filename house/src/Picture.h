#pragma once

#include <string>

namespace house {

/// The bytes of a PNG that stands for a picture nobody has taken: a plate in a colour made from the name.
std::string pictureFor(const std::string& name);

} // namespace house
