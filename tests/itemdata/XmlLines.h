#pragma once

#include <string>
#include <vector>

#include "plugin/contract/XMLBuilder.h"

namespace Quillane::Plugin::ItemData {

/// The document's elements one line each, indented by two blanks a level, whatever the prefixes:
/// "{namespace}name attribute=value 'text'". The text is left out where there is none.
std::vector<std::string> xmlLines(const XMLBuilder::Document& document);

}  // namespace Quillane::Plugin::ItemData
