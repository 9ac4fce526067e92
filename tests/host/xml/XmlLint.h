#pragma once

#include <string>

/// Lets xmllint, which is strict, read an XML text. Returns what it had to say; empty when the text is well-formed and,
/// if schema is given, valid by that schema file.
std::string lint(const std::string& xml, const std::string& schema = {});
