// Finding, loading and unloading modules.
//
//  1. One library has one container: a library that is found a second time (by another path) is passed over before its
//     get_plugin is called again.
//  2. A container is deleted before its library is closed, because its code is in there.
#include "host/plugins/PluginLoader.h"

#include <dlfcn.h>
#include <libintl.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "host/plugins/Catalogues.h"

using namespace FX;

namespace Quillane::Host {

namespace {

namespace fs = std::filesystem;

using GetPlugin = Plugin::PluginContainer* (*)(Tarnwell*);

constexpr std::string_view kFilePrefix = "libQuillanePlugin";
constexpr std::string_view kNamePrefix = "lib";
constexpr std::string_view kFileSuffix = ".so";

bool isModuleName(std::string_view name) {
  return name.size() > kFilePrefix.size() + kFileSuffix.size() && name.substr(0, kFilePrefix.size()) == kFilePrefix &&
         name.substr(name.size() - kFileSuffix.size()) == kFileSuffix;
}

std::vector<fs::path> findModules(const FXString& folder) {
  std::vector<fs::path> files;
  std::error_code failure;
  fs::directory_iterator entry(folder.text(), failure);
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure))
    if (isModuleName(entry->path().filename().native())) files.push_back(entry->path());
  std::sort(files.begin(), files.end());
  return files;
}

/// The text domain that a module's file name promises. The code name, which decides, is not known before the module's
/// texts are asked for the first time.
FXString domainOf(const FXString& file) {
  const std::string name = fs::path(file.text()).filename().native();
  return name.substr(kNamePrefix.size(), name.size() - kNamePrefix.size() - kFileSuffix.size()).c_str();
}

FXString lastLoadError() {
  const char* reason = dlerror();
  return reason ? reason : "";
}

}  // namespace

PluginLoader::~PluginLoader() { unload(); }

std::vector<FXString> PluginLoader::getDefaultFolders() {
  std::vector<FXString> folders;
  const char* given = std::getenv("QUILLANE_PLUGIN_PATH");
  for (std::string_view path = given ? given : ""; !path.empty();) {
    const std::size_t length = std::min(path.find(':'), path.size());
    if (length > 0) folders.emplace_back(path.data(), static_cast<FXint>(length));
    path.remove_prefix(std::min(length + 1, path.size()));
  }
  std::error_code ignored;  // a folder that cannot be looked at is none
  if (fs::is_directory(QUILLANE_BUILD_PLUGINS, ignored)) folders.emplace_back(QUILLANE_BUILD_PLUGINS);
  folders.emplace_back(QUILLANE_INSTALLED_PLUGINS);
  return folders;
}

void PluginLoader::load(const std::vector<FXString>& folders) {
  if (loaded.empty()) {  // what was found before the modules were unloaded is said no more
    rejected.clear();
    shadowed.clear();
  }
  for (const FXString& folder : folders)
    for (const fs::path& file : findModules(folder)) {
      std::error_code failure;
      const fs::path whole = fs::absolute(file, failure);  // dlopen searches elsewhere for a name without a slash
      loadFile((failure ? file : whole).c_str());
    }
}

void PluginLoader::loadFile(const FXString& file) {
  std::error_code failure;
  if (!fs::is_regular_file(file.text(), failure)) {
    rejected.push_back({file, dgettext("quillane", "nem közönséges fájl")});
    return;
  }
  void* library = dlopen(file.text(), RTLD_NOW | RTLD_LOCAL);
  if (!library) {
    rejected.push_back({file, lastLoadError()});
    return;
  }
  const auto has = [library](const Loaded& module) { return module.library == library; };
  if (std::any_of(loaded.begin(), loaded.end(), has)) {
    dlclose(library);
    return;
  }
  const auto getPlugin = reinterpret_cast<GetPlugin>(dlsym(library, "get_plugin"));
  if (!getPlugin) {
    rejected.push_back({file, dgettext("quillane", "nincs benne get_plugin")});
    dlclose(library);
    return;
  }
  bindCatalogue(domainOf(file));
  Plugin::PluginContainer* container = getPlugin(&account);
  if (!container) {
    rejected.push_back({file, dgettext("quillane", "a get_plugin nem adott bővítményt")});
    dlclose(library);
    return;
  }
  const auto namesake = std::find_if(loaded.begin(), loaded.end(), [container](const Loaded& module) {
    return module.container->getCodeName() == container->getCodeName();
  });
  if (namesake != loaded.end()) {
    shadowed.push_back({file, FXStringFormat(dgettext("quillane", "%s már be van töltve innen: %s"),
                                             container->getCodeName().text(), namesake->file.text())});
    delete container;
    dlclose(library);
    return;
  }
  bindCatalogue(container->getCodeName());
  loaded.push_back({file, container, library});
}

bool PluginLoader::start() {
  if (!account.getDB()) return false;
  const std::size_t first = started;
  started = loaded.size();
  for (std::size_t i = first; i < started; ++i) loaded[i].container->init();
  for (std::size_t i = first; i < started; ++i) {
    const FXObjectList& modules = loaded[i].container->getModules();
    for (FXint hook = 0; hook < modules.no(); ++hook) {
      auto* module = dynamic_cast<Plugin::PluginModule*>(modules[hook]);
      const int result = module ? module->init() : 0;
      if (result != 0)
        rejected.push_back(
            {loaded[i].file, FXStringFormat(dgettext("quillane", "a(z) %d. kapcsolódási pontja nem indult el (%d)"),
                                            hook + 1, result)});
    }
  }
  for (std::size_t i = first; i < started; ++i) loaded[i].container->start();
  return true;
}

void PluginLoader::unload() {
  while (!loaded.empty()) {
    const Loaded module = loaded.back();
    loaded.pop_back();
    delete module.container;
    dlclose(module.library);
  }
  started = 0;
}

EntityHooks PluginLoader::getEntityHooks() const {
  EntityHooks hooks;
  for (const Plugin::EntityPlugin* hook : getHooks<Plugin::EntityPlugin>()) hooks.add(hook);
  return hooks;
}

void PluginLoader::addHooksTo(DocumentCheck& check) const {
  for (Plugin::InvoiceCheckPlugin* hook : getHooks<Plugin::InvoiceCheckPlugin>()) check.add(hook);
}

}  // namespace Quillane::Host
