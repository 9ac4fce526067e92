// A module that does not want to.
namespace Quillane {
class Tarnwell;
namespace Plugin {
class PluginContainer;
}
}  // namespace Quillane

extern "C" Quillane::Plugin::PluginContainer* get_plugin(Quillane::Tarnwell*) { return nullptr; }
