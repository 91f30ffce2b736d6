#include "preference_scene.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace halcyra::preferences;
using scene::kProduct;

namespace {

class Inspecting : public scene::PreferenceScene {
protected:
    void write_layers()
    {
        write(user_file(), document("<a dt='int'>1</a><p dt='int'>1</p><p dt='int' os='linux'>2</p>"
                                    "<p dt='int' os='windows'>2</p><g><x dt='bool'>true</x></g>"
                                    "<far dt='int' os='darwin'>1</far><odd dt='int'>x</odd>"));
        write(text("machine.xml"), document("<m dt='double'>2.5</m><a dt='int'>9</a>"));
        write(text("site.xml"), document("<!--why--><s dt='QString'>text</s><m dt='int'>9</m>"));
    }

    /// Everything below the scene's directory.
    std::string tree() const
    {
        std::string names;
        for (const auto &entry : std::filesystem::recursive_directory_iterator(root_))
            names += entry.path().string() + "\n";
        return names;
    }
};

// Whatever the store would answer, the explanation announces.
TEST_F(Inspecting, ForetellsEveryGetter)
{
    write_layers();
    const Inspection inspection(kProduct);
    QZPREF store(kProduct, true);
    for (const char *key : {"a", "p", "g/x", "far", "odd", "m", "s", "none", "g", "/a/"}) {
        SCOPED_TRACE(key);
        const Explanation explanation = inspection.explain(key);
        EXPECT_EQ(explanation.winner, store.getKeySource(key));
        EXPECT_EQ(explanation.type, store.getType(key));
        ASSERT_EQ(explanation.getters.size(), 8u);
        int i = 0;
        double d = 0;
        bool b = false;
        std::string s;
        const int codes[] = {store.get(key, i), store.getInt(key, &i, 0),
                             store.get(key, d), store.getDouble(key, &d, 0),
                             store.get(key, b), store.getBool(key, &b, false),
                             store.get(key, s), store.getString(key, s, "")};
        for (std::size_t n = 0; n < 8; ++n)
            EXPECT_EQ(explanation.getters[n].code, codes[n]) << explanation.getters[n].getter;
    }
    const Explanation explanation = inspection.explain("m");
    EXPECT_EQ(explanation.getters[2].value, "2.5");
    EXPECT_TRUE(explanation.getters[3].gives_default);
    EXPECT_EQ(explanation.layers[2].plain_form.value, "9");
}

TEST_F(Inspecting, ListsWhatAnswersHere)
{
    write_layers();
    const Inspection inspection(kProduct);
    std::string listing;
    for (const ListedKey &key : inspection.list(""))
        listing += key.key + "=" + key.value + "@" + qzpref_source_to_string(key.source) +
                   (key.platform_form ? "* " : " ");
    EXPECT_EQ(listing, "a=1@user g/x=true@user m=2.5@machine odd=x@user p=2@user* "
                       "s=text@installation ");
    EXPECT_EQ(inspection.list("g").size(), 1u);
    EXPECT_EQ(inspection.list("s").size(), 0u);
    EXPECT_EQ(inspection.groups(""), std::vector<std::string>{"g"});
    EXPECT_EQ(inspection.layers()[1].key_count, 2u);
    EXPECT_EQ(inspection.layers()[1].file, text("machine.xml"));
}

TEST_F(Inspecting, TouchesNothing)
{
    write(user_file("2025-1"), document("<a dt='int'>1</a>"));
    write(text("machine.xml"), "damaged");
    set("TMPDIR", text("no/tmp"));
    const std::string before = tree();
    scene::QtLog log;
    const Inspection inspection(kProduct);
    EXPECT_EQ(inspection.migration().release, "2025-1");
    EXPECT_EQ(inspection.migration().key_count, 1u);
    EXPECT_EQ(inspection.layers()[1].status, QZPREF_FORMAT_ERROR);
    EXPECT_FALSE(inspection.layers()[0].exists);
    inspection.explain("a");
    EXPECT_EQ(tree(), before);
    unset("HALCYRA_QZPREF_SANDBOX");
    Inspection elsewhere(kProduct);
    EXPECT_EQ(scene::with_slashes(elsewhere.layers()[0].file).find(home()), 0u);
    EXPECT_EQ(tree(), before);
}

TEST_F(Inspecting, ExplainsAsJson)
{
    write_layers();
    char *json = nullptr;
    EXPECT_EQ(qzpref_explain(kProduct, "s", &json), 0);
    const QJsonObject object =
        QJsonDocument::fromJson(QByteArray::fromStdString(scene::taken(json))).object();
    EXPECT_EQ(object["winner"].toString(), "installation");
    EXPECT_EQ(object["layers"][2]["plain_form"]["comment"].toString(), "why");
    EXPECT_EQ(qzpref_explain(kProduct, "none", &json), QZPREF_KEY_NOT_FOUND);
    EXPECT_NE(scene::taken(json), "(null)");
    EXPECT_EQ(qzpref_explain(static_cast<QZPREF_PRODUCTS>(99), "s", &json), QZPREF_UNKNOWN_PRODUCT);
    EXPECT_EQ(json, nullptr);
}

TEST(Products, HaveNames)
{
    EXPECT_EQ(product_name(QZPREF_DOVREL), "Dovrel");
    EXPECT_EQ(product_from_text("dovrel"), QZPREF_DOVREL);
    EXPECT_EQ(product_from_text("3"), QZPREF_DOVREL);
    for (const char *none : {"", "16", "-1", "dov", "03"})
        EXPECT_THROW(product_from_text(none), std::runtime_error) << none;
    std::string previous;
    for (int number = 0; number < 16; ++number) {
        const std::string name = product_name(static_cast<QZPREF_PRODUCTS>(number));
        EXPECT_LT(previous, name) << "the numbering follows the alphabet";
        previous = name;
    }
}

} // namespace
