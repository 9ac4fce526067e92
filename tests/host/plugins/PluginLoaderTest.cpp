#include "host/plugins/PluginLoader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libintl.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "host/plugins/Catalogues.h"
#include "plugin/contract/Invoice.h"
#include "tests/host/plugins/CallRecord.h"
#include "tests/support/TestCompany.h"

using namespace FX;
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::vector<std::string> calls;

}  // namespace

void recordCall(const char* module, const char* call) { calls.push_back(std::string(module) + ": " + call); }

namespace Quillane::Host {
namespace {

/// A few folders for modules, and a company that is open.
class PluginLoaderTest : public testing::Test {
 protected:
  PluginLoaderTest() {
    calls.clear();
    root = (fs::temp_directory_path() / "quillane-modules-XXXXXX").native();
    if (!mkdtemp(root.data())) throw std::runtime_error("no temporary folder");
  }

  ~PluginLoaderTest() override { fs::remove_all(root); }

  FXString folder(const std::string& name) {
    fs::create_directories(root + "/" + name);
    return (root + "/" + name).c_str();
  }

  /// Copies the test module NAME into a folder.
  void put(const std::string& name, const std::string& folderName, const std::string& fileName = {}) {
    const std::string file = "libQuillanePlugin" + name + ".so";
    fs::copy_file(std::string(QUILLANE_TEST_MODULES) + "/" + file,
                  std::string(folder(folderName).text()) + "/" + (fileName.empty() ? file : fileName));
  }

  /// The files of some modules, without the folder of this test.
  template <class List>
  std::vector<std::string> files(const List& modules) {
    std::vector<std::string> all;
    for (const auto& module : modules) all.push_back(std::string(module.file.text()).substr(root.size() + 1));
    return all;
  }

  std::string root;
  TestCompany company;
  PluginLoader loader{testAccount()};
};

TEST_F(PluginLoaderTest, takesModulesThroughTheirWholeLife) {
  put("Alpha", "a");
  loader.load({folder("a")});
  EXPECT_THAT(calls, ElementsAre("QuillanePluginAlpha: get_plugin"));
  ASSERT_EQ(loader.getLoaded().size(), 1u);
  EXPECT_EQ(loader.getLoaded()[0].container->getCodeName(), "QuillanePluginAlpha");
  EXPECT_EQ(loader.getLoaded()[0].container->getAccount(), &testAccount());
  calls.clear();
  EXPECT_TRUE(loader.start());
  EXPECT_THAT(calls, ElementsAre("QuillanePluginAlpha: init", "QuillanePluginAlpha: check init",
                                 "QuillanePluginAlpha: hook init", "QuillanePluginAlpha: start"));
  calls.clear();
  EXPECT_TRUE(loader.start());
  EXPECT_THAT(calls, IsEmpty());
  loader.unload();
  EXPECT_THAT(calls, ElementsAre("QuillanePluginAlpha: deleted", "QuillanePluginAlpha: check deleted",
                                 "QuillanePluginAlpha: hook deleted", "QuillanePluginAlpha: unloaded"));
  EXPECT_THAT(loader.getLoaded(), IsEmpty());
}

TEST_F(PluginLoaderTest, startsNoneBeforeAllAreInitialisedAndUnloadsThemBackwards) {
  put("Beta", "a");
  put("Alpha", "b");
  loader.load({folder("a"), folder("b")});
  calls.clear();
  EXPECT_TRUE(loader.start());
  EXPECT_THAT(calls,
              ElementsAre("QuillanePluginBeta: init", "QuillanePluginAlpha: init", "QuillanePluginBeta: check init",
                          "QuillanePluginBeta: hook init", "QuillanePluginAlpha: check init",
                          "QuillanePluginAlpha: hook init", "QuillanePluginBeta: start", "QuillanePluginAlpha: start"));
  calls.clear();
  loader.unload();
  EXPECT_THAT(calls, ElementsAre("QuillanePluginAlpha: deleted", "QuillanePluginAlpha: check deleted",
                                 "QuillanePluginAlpha: hook deleted", "QuillanePluginAlpha: unloaded",
                                 "QuillanePluginBeta: deleted", "QuillanePluginBeta: check deleted",
                                 "QuillanePluginBeta: hook deleted", "QuillanePluginBeta: unloaded"));
}

TEST_F(PluginLoaderTest, unloadsWithItself) {
  put("Alpha", "a");
  {
    PluginLoader own(testAccount());
    own.load({folder("a")});
    calls.clear();
  }
  EXPECT_THAT(calls, ElementsAre("QuillanePluginAlpha: deleted", "QuillanePluginAlpha: unloaded"));
}

TEST_F(PluginLoaderTest, canLoadAModuleAgainAfterUnloadingIt) {
  put("Alpha", "a");
  for (int round = 0; round < 3; ++round) {
    loader.load({folder("a")});
    EXPECT_EQ(loader.getLoaded().size(), 1u);
    calls.clear();
    EXPECT_TRUE(loader.start());
    EXPECT_EQ(calls.size(), 4u);
    loader.unload();
  }
}

TEST_F(PluginLoaderTest, startsLaterLoadedModulesToo) {
  put("Alpha", "a");
  put("Beta", "b");
  loader.load({folder("a")});
  loader.start();
  loader.load({folder("b")});
  calls.clear();
  loader.start();
  EXPECT_THAT(calls, ElementsAre("QuillanePluginBeta: init", "QuillanePluginBeta: check init",
                                 "QuillanePluginBeta: hook init", "QuillanePluginBeta: start"));
}

TEST_F(PluginLoaderTest, startsNothingWithoutACompany) {
  put("Alpha", "a");
  loader.load({folder("a")});
  testAccount().setDB(nullptr);
  calls.clear();
  EXPECT_FALSE(loader.start());
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PluginLoaderTest, loadsByFolderAndThenByFileName) {
  put("Beta", "z");
  put("Alpha", "a");
  put("Alpha", "z", "libQuillanePluginA.so");
  loader.load({folder("z"), folder("a")});
  EXPECT_THAT(files(loader.getLoaded()), ElementsAre("z/libQuillanePluginA.so", "z/libQuillanePluginBeta.so"));
  EXPECT_THAT(files(loader.getShadowed()), ElementsAre("a/libQuillanePluginAlpha.so"));
  EXPECT_THAT(loader.getRejected(), IsEmpty());
}

TEST_F(PluginLoaderTest, takesOnlyFilesThatAreNamedLikeModules) {
  put("Alpha", "a", "QuillanePluginAlpha.so");
  put("Alpha", "a", "libQuillanePluginAlpha.so.1");
  put("Alpha", "a", "libOther.so");
  put("Alpha", "a", "libQuillanePlugin.so");
  loader.load({folder("a"), folder("empty"), (root + "/missing").c_str(), ""});
  EXPECT_THAT(loader.getLoaded(), IsEmpty());
  EXPECT_THAT(loader.getRejected(), IsEmpty());
}

TEST_F(PluginLoaderTest, takesTheFirstOfTwoModulesWithOneCodeName) {
  put("Alpha", "first");
  put("OtherAlpha", "second");
  loader.load({folder("second"), folder("first")});
  EXPECT_THAT(files(loader.getLoaded()), ElementsAre("second/libQuillanePluginOtherAlpha.so"));
  ASSERT_THAT(files(loader.getShadowed()), ElementsAre("first/libQuillanePluginAlpha.so"));
  EXPECT_EQ(loader.getShadowed()[0].reason,
            FXString("QuillanePluginAlpha már be van töltve innen: ") + loader.getLoaded()[0].file);
  EXPECT_THAT(calls, ElementsAre("QuillanePluginAlpha: get_plugin", "QuillanePluginAlpha: get_plugin",
                                 "QuillanePluginAlpha: deleted", "QuillanePluginAlpha: unloaded"));
  EXPECT_THAT(loader.getRejected(), IsEmpty());
}

TEST_F(PluginLoaderTest, makesOneContainerOfALibraryThatIsFoundTwice) {
  put("Alpha", "a");
  fs::create_symlink(std::string(folder("a").text()) + "/libQuillanePluginAlpha.so",
                     std::string(folder("b").text()) + "/libQuillanePluginAlpha.so");
  loader.load({folder("a"), folder("a"), folder("b")});
  loader.load({folder("a")});
  EXPECT_EQ(loader.getLoaded().size(), 1u);
  EXPECT_THAT(calls, ElementsAre("QuillanePluginAlpha: get_plugin"));
  EXPECT_THAT(loader.getShadowed(), IsEmpty());
  calls.clear();
  loader.unload();
  EXPECT_THAT(calls, ElementsAre("QuillanePluginAlpha: deleted", "QuillanePluginAlpha: unloaded"));
}

TEST_F(PluginLoaderTest, reportsWhatIsNoModuleAndGoesOn) {
  put("WithoutEntry", "a");
  put("Null", "a");
  put("Unresolved", "a");
  put("Alpha", "a", "libQuillanePluginZ.so");
  std::ofstream(std::string(folder("a").text()) + "/libQuillanePluginText.so") << "nem könyvtár";
  std::ofstream(std::string(folder("a").text()) + "/libQuillanePluginEmpty.so");
  folder("a/libQuillanePluginFolder.so");
  fs::create_symlink("nowhere", std::string(folder("a").text()) + "/libQuillanePluginLost.so");
  loader.load({folder("a")});
  EXPECT_THAT(files(loader.getLoaded()), ElementsAre("a/libQuillanePluginZ.so"));
  EXPECT_THAT(files(loader.getRejected()),
              ElementsAre("a/libQuillanePluginEmpty.so", "a/libQuillanePluginFolder.so", "a/libQuillanePluginLost.so",
                          "a/libQuillanePluginNull.so", "a/libQuillanePluginText.so",
                          "a/libQuillanePluginUnresolved.so", "a/libQuillanePluginWithoutEntry.so"));
  ASSERT_EQ(loader.getRejected().size(), 7u);
  EXPECT_THAT(loader.getRejected()[0].reason.text(), HasSubstr("file too short"));
  EXPECT_EQ(loader.getRejected()[1].reason, "nem közönséges fájl");
  EXPECT_EQ(loader.getRejected()[2].reason, "nem közönséges fájl");
  EXPECT_EQ(loader.getRejected()[3].reason, "a get_plugin nem adott bővítményt");
  EXPECT_THAT(loader.getRejected()[4].reason.text(), HasSubstr("libQuillanePluginText.so"));
  EXPECT_THAT(loader.getRejected()[5].reason.text(), HasSubstr("functionThatNoHostHas"));
  EXPECT_EQ(loader.getRejected()[6].reason, "nincs benne get_plugin");
}

TEST_F(PluginLoaderTest, reportsHooksThatDidNotStart) {
  put("Alpha", "a");
  loader.load({folder("a")});
  loader.start();
  ASSERT_THAT(files(loader.getRejected()), ElementsAre("a/libQuillanePluginAlpha.so"));
  EXPECT_EQ(loader.getRejected()[0].reason, "a(z) 1. kapcsolódási pontja nem indult el (3)");
}

TEST_F(PluginLoaderTest, findsModulesInAFolderGivenRelatively) {
  put("Alpha", "a");
  const fs::path before = fs::current_path();
  fs::current_path(folder("a").text());
  loader.load({"."});
  fs::current_path(before);
  EXPECT_EQ(loader.getLoaded().size(), 1u);
  EXPECT_THAT(loader.getRejected(), IsEmpty());
}

TEST_F(PluginLoaderTest, givesTheHooksOfAllModulesByKind) {
  put("Alpha", "a");
  put("Beta", "a");
  loader.load({folder("a")});
  loader.start();
  EXPECT_EQ(loader.getHooks<Plugin::PluginModule>().size(), 4u);
  ASSERT_EQ(loader.getHooks<Plugin::InvoiceCheckPlugin>().size(), 2u);
  EXPECT_EQ(loader.getHooks<Plugin::InvoiceCheckPlugin>()[0]->getContainer(), loader.getLoaded()[0].container);
  EXPECT_EQ(loader.getHooks<Plugin::InvoiceCheckPlugin>()[1]->getContainer(), loader.getLoaded()[1].container);
  calls.clear();
  InvoiceItem item;
  const EntityHooks hooks = loader.getEntityHooks();
  hooks.load(&item);
  EXPECT_EQ(hooks.toString(&item), "QuillanePluginAlpha; QuillanePluginBeta");
  DocumentCheck check;
  loader.addHooksTo(check);
  Invoice invoice;
  check.run(invoice, "X");
  EXPECT_THAT(calls, ElementsAre("QuillanePluginAlpha: load", "QuillanePluginBeta: load",
                                 "QuillanePluginAlpha: checkInvoice", "QuillanePluginBeta: checkInvoice"));
}

TEST_F(PluginLoaderTest, bindsTheTextsOfAModuleWhateverItsFileIsCalled) {
  put("Renamed", "a");  // nowhere else, since a binding stays
  ASSERT_EQ(bind_textdomain_codeset("QuillanePluginCodeName", nullptr), nullptr);
  loader.load({folder("a")});
  ASSERT_EQ(loader.getLoaded().size(), 1u);
  for (const char* domain : {"QuillanePluginRenamed", "QuillanePluginCodeName"}) {
    EXPECT_STREQ(bindtextdomain(domain, nullptr), catalogueFolder().text()) << domain;
    EXPECT_STREQ(bind_textdomain_codeset(domain, nullptr), "UTF-8") << domain;
  }
}

TEST_F(PluginLoaderTest, bindsTheTextsBeforeTheModuleAsksForThem) {
  put("Texts", "a");  // nowhere else, since a binding stays
  ASSERT_EQ(bind_textdomain_codeset("QuillanePluginTexts", nullptr), nullptr);
  loader.load({folder("a")});
  ASSERT_EQ(loader.getLoaded().size(), 1u);
  EXPECT_EQ(loader.getLoaded()[0].container->getDescription(), "has its texts");
}

/// Sets QUILLANE_PLUGIN_PATH as long as it lives.
class PluginPath {
 public:
  explicit PluginPath(const char* value) { setenv("QUILLANE_PLUGIN_PATH", value, 1); }
  ~PluginPath() { unsetenv("QUILLANE_PLUGIN_PATH"); }
};

std::vector<std::string> defaultFolders() {
  std::vector<std::string> all;
  for (const FXString& name : PluginLoader::getDefaultFolders()) all.emplace_back(name.text());
  return all;
}

TEST(PluginLoaderFolders, beginWithThoseOfTheEnvironment) {
  const std::vector<std::string> fixed = defaultFolders();
  ASSERT_FALSE(fixed.empty());
  EXPECT_THAT(fixed.back(), testing::EndsWith("/quillane/plugins"));
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"", {}}, {"/a", {"/a"}}, {"/a:/b c", {"/a", "/b c"}}, {":/a::/b:", {"/a", "/b"}}, {":", {}}, {"a", {"a"}},
  };
  for (const auto& [value, given] : cases) {
    const PluginPath path(value);
    std::vector<std::string> expected = given;
    expected.insert(expected.end(), fixed.begin(), fixed.end());
    EXPECT_EQ(defaultFolders(), expected) << value;
  }
}

}  // namespace
}  // namespace Quillane::Host
