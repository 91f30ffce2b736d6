#include "qzfile.hpp"
#include "qzfile/scene.h"

#include <algorithm>
#include <stdexcept>

using scene::Messages;
using scene::taken;
using scene::thrown;

namespace {

class ProductDirectories : public scene::Scene {
protected:
    /// The suite installed in the scene: one directory a product, and what may lie beside them.
    void install()
    {
        set("HALCYRA", root_.string());
        for (const char *name : {"plindra-v71131", "atelio-v2025.3", "korvel", "korvel-v1.2.3",
                                 "korvel-v12x", "xkorvel-v1", "brevix-vnext", "sample_data-v5"})
            std::filesystem::create_directory(root_ / name);
    }
};

constexpr char kNoProduct[] = "Failure getting the product directory";

} // namespace

TEST_F(ProductDirectories, FindsTheOneWithAVersion)
{
    install();
    const std::string root = root_.string() + "\\";

    const struct {
        const char *why, *product;
        int result;
        std::string directory;
    } cases[] = {
        {"a whole number",                      "plindra",     0,  root + "plindra-v71131"},
        {"a number with a point",               "atelio",      0,  root + "atelio-v2025.3"},
        {"one character and no digits follow",  "korvel",      -1, "(null)"               },
        {"no number",                           "brevix",      -1, "(null)"               },
        {"not installed",                       "nordeval",    -1, "(null)"               },
        {"unknown, but that is not asked here", "sample_data", 0,  root + "sample_data-v5"},
        {"a word is a pattern as it stands",    "(",           -1, "(null)"               },
        {"null",                                nullptr,       -1, "(null)"               },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        Messages of_the_pattern;
        char *directory = nullptr;
        EXPECT_EQ(qzfile_find_product_dir(c.product, &directory), c.result);
        EXPECT_EQ(taken(directory), c.directory);
    }
    namespace path = halcyra::path;
    EXPECT_EQ(qzfile_get_product_dir_path("plindra"), root + "plindra-v71131");
    EXPECT_EQ(path::product_dir("plindra"), boost::filesystem::path(text("plindra-v71131")));
    EXPECT_EQ(path::product_dir("sample_data"), boost::filesystem::path(text("sample_data-v5")));
    EXPECT_EQ(path::get_atelio_data_res_directory_file("x\\y.res").generic_string(),
              (root_ / "atelio-v2025.3/data/res/x/y.res").generic_string());
    EXPECT_EQ(path::get_plindra_data_atelio_directory_file("x").generic_string(),
              (root_ / "plindra-v71131/data/atelio/x").generic_string());
    EXPECT_EQ(qzfile_get_atelio_scripts_path(AtelioScriptsPathType::SystemMenuFile),
              root + "plindra-v71131\\python\\common\\scriptsx.mnu");
    EXPECT_EQ(qzfile_get_atelio_scripts_path(AtelioScriptsPathType::SystemScriptsDir),
              root + "plindra-v71131\\python\\common");
}

TEST_F(ProductDirectories, SaysWhatIsWrong)
{
    install();
    EXPECT_EQ(thrown<std::out_of_range>([] { halcyra::path::product_dir("Plindra"); }),
              "Invalid product: Plindra");
    EXPECT_EQ(thrown<std::runtime_error>([] { halcyra::path::product_dir("korvel"); }), kNoProduct);
    EXPECT_EQ(thrown<std::runtime_error>([] { qzfile_get_product_dir_path("korvel"); }),
              kNoProduct);
    EXPECT_EQ(thrown<std::runtime_error>(
                  [] { qzfile_get_atelio_scripts_path(AtelioScriptsPathType(5)); }),
              "Invalid script path type specified.");
}

TEST_F(ProductDirectories, RootsThatAreNone)
{
    touch("file");

    const struct {
        const char *why;
        std::string root;
    } cases[] = {
        {"empty",   ""          },
        {"missing", text("no")  },
        {"a file",  text("file")},
        {"a drive", "Q:\\x"     }
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        set("HALCYRA", c.root);
        Messages messages;
        char *directory = nullptr;
        testing::internal::CaptureStdout();
        EXPECT_EQ(qzfile_find_product_dir("plindra", &directory), -1);
        testing::internal::GetCapturedStdout();
        EXPECT_EQ(messages.text(), "FATAL Cannot open " + c.root + "\n");
        EXPECT_EQ(directory, nullptr);
    }
    unset("HALCYRA");
    EXPECT_TRUE(halcyra::path::halcyra_dir().empty());
    EXPECT_EQ(qzfile_get_config_dir(), "config");
    set("HALCYRA", "sub\xFF/");
    EXPECT_EQ(qzfile_get_config_dir(), "sub\xFF/config") << "bytes that are no text are kept";
}

TEST_F(ProductDirectories, TheTableIsOne)
{
    const std::vector<std::string> words = qzfile_get_product_directory_names();
    EXPECT_EQ(words.size(), 20u);
    EXPECT_TRUE(std::is_sorted(words.begin(), words.end()));
    EXPECT_EQ(test::get_product_names(),
              std::unordered_set<std::string>(words.begin(), words.end()));
    for (const std::string &word : words) {
        int version = 0;
        EXPECT_EQ(qzfile_get_product_version(word.c_str(), &version), 0);
        EXPECT_EQ(version % 1000, 131) << word;
        EXPECT_TRUE(version >= 53131 && version <= 149131) << word;
    }
    int version = 7;
    for (const char *unknown : {"Plindra", "plindra ", "plindr", "", "sample_data"})
        EXPECT_EQ(qzfile_get_product_version(unknown, &version), -1) << unknown;
    EXPECT_EQ(version, 7);
    EXPECT_EQ(qzfile_get_product_version("plindra", &version), 0);
    EXPECT_EQ(version, halcyra::plindra_version());
    EXPECT_EQ(version, 71131);
}
