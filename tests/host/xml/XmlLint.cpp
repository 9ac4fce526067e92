// An independent parser's opinion on our XML.
#include "tests/host/xml/XmlLint.h"

#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>

std::string lint(const std::string& xml, const std::string& schema) {
  std::string file = (std::filesystem::temp_directory_path() / "quillane-xml-XXXXXX").native();
  const int descriptor = mkstemp(file.data());
  if (descriptor < 0) throw std::runtime_error("no temporary file: " + file);
  const bool written = write(descriptor, xml.data(), xml.size()) == static_cast<ssize_t>(xml.size());
  close(descriptor);
  const std::string options = schema.empty() ? "" : "--schema '" + schema + "' ";
  FILE* output = written ? popen(("xmllint --noout --nonet --huge " + options + file + " 2>&1").c_str(), "r") : nullptr;
  if (!output) throw std::runtime_error("xmllint could not be run on " + file);
  std::string said;
  char part[4096];
  while (const std::size_t length = fread(part, 1, sizeof(part), output)) said.append(part, length);
  const int status = pclose(output);
  std::filesystem::remove(file);
  if (!WIFEXITED(status) || WEXITSTATUS(status) == 127) throw std::runtime_error("xmllint could not be run: " + said);
  return WEXITSTATUS(status) == 0 ? std::string() : said + "(in " + xml.substr(0, 2000) + ")";
}
