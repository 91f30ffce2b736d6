#include "qzfile.hpp"
#include "qzfile/scene.h"

#include <algorithm>
#include <stdexcept>

using scene::given_by;
using scene::Messages;
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
        std::string directory;
    } cases[] = {
        {"a whole number",                      "plindra",     root + "plindra-v71131"},
        {"a number with a point",               "atelio",      root + "atelio-v2025.3"},
        {"one character and no digits follow",  "korvel",      "(null)"               },
        {"no number",                           "brevix",      "(null)"               },
        {"not installed",                       "nordeval",    "(null)"               },
        {"unknown, but that is not asked here", "sample_data", root + "sample_data-v5"},
        {"a word is a pattern as it stands",    "(",           "(null)"               },
        {"null",                                nullptr,       "(null)"               },
    };

    Messages of_the_pattern;
    for (const auto &c : cases)
        EXPECT_EQ(given_by(qzfile_find_product_dir, c.product), c.directory) << c.why;
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

    for (const std::string &root :
         {std::string(), text("no"), text("file"), std::string("Q:\\x")}) {
        set("HALCYRA", root);
        Messages messages;
        testing::internal::CaptureStdout();
        EXPECT_EQ(given_by(qzfile_find_product_dir, "plindra"), "(null)");
        testing::internal::GetCapturedStdout();
        EXPECT_EQ(messages.text(), "FATAL Cannot open " + root + "\n");
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
