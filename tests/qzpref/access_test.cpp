#include "preference_scene.h"

#include <stdexcept>

using halcyra::Preferences;
using scene::kProduct;
using scene::taken;
using scene::thrown;

namespace {

class Handles : public scene::PreferenceScene {
protected:
    void SetUp() override
    {
        write(text("machine.xml"), document("<m><one dt='int'>1</one></m>"));
        ASSERT_EQ(qzpref_new(&h_, kProduct), 0);
    }

    void TearDown() override { qzpref_delete(h_); }

    std::size_t h_ = 0;
};

TEST_F(Handles, KeepEveryTypeAndCode)
{
    EXPECT_EQ(qzpref_set_int(h_, "g/i", -4), 0);
    EXPECT_EQ(qzpref_set_double(h_, "g/d", 2.5), 0);
    EXPECT_EQ(qzpref_set_bool(h_, "g/b", 7), 0);
    EXPECT_EQ(qzpref_set_string(h_, "g/s", "größe"), 0);
    EXPECT_EQ(qzpref_set_int(h_, "g/s", 1), QZPREF_FAILURE);
    EXPECT_EQ(qzpref_sync(h_), 0);

    int i = 9, b = 9;
    double d = 9;
    char *s = nullptr;
    EXPECT_EQ(qzpref_get_int(h_, "g/i", &i), 0);
    EXPECT_EQ(i, -4);
    EXPECT_EQ(qzpref_get_int(h_, "m/one", &i), 0);
    EXPECT_EQ(i, 1) << "handles read through the layers";
    EXPECT_EQ(qzpref_get_double(h_, "g/d", &d), 0);
    EXPECT_EQ(d, 2.5);
    EXPECT_EQ(qzpref_get_bool(h_, "g/b", &b), 0);
    EXPECT_EQ(b, 1);
    EXPECT_EQ(qzpref_get_string(h_, "g/s", &s), 0);
    EXPECT_EQ(taken(s), "größe");

    EXPECT_EQ(qzpref_get_double(h_, "g/s", &d), QZPREF_CONVERSION_ERROR);
    EXPECT_EQ(d, 0.0);
    EXPECT_EQ(qzpref_get_bool(h_, "g/i", &b), QZPREF_CONVERSION_ERROR);
    EXPECT_EQ(b, 0);
    EXPECT_EQ(qzpref_get_string(h_, "g/none", &s), QZPREF_KEY_NOT_FOUND);
    EXPECT_EQ(taken(s), "");
    EXPECT_EQ(qzpref_get_type(h_, "g/d"), QZPREF_TYPE_DOUBLE);
    EXPECT_EQ(qzpref_contains(h_, "g/i", QZPREF_TYPE_INT), 0);
    EXPECT_EQ(qzpref_contains(h_, "g/i", QZPREF_TYPE_BOOL), QZPREF_KEY_NOT_FOUND);
    EXPECT_EQ(qzpref_remove(h_, "g/i", QZPREF_TYPE_INT), 1);
    EXPECT_EQ(qzpref_remove(h_, "g", QZPREF_TYPE_NONE), 3);
    EXPECT_EQ(taken(qzpref_get_settings_file(h_)), scene::with_slashes(user_file()));
}

// The other lists and the subgroups are asked for by the programs in Fortran.
TEST_F(Handles, FlattenLists)
{
    for (const char *key : {"g/b", "g/a", "g/sub/c"})
        EXPECT_EQ(qzpref_set_string(h_, key, (std::string("v") + key).c_str()), 0);

    char **names = nullptr, **texts = nullptr;
    int *numbers = nullptr;
    int count = -1;
    EXPECT_EQ(qzpref_get_string_list(h_, "g", &names, &texts, &count), 0);
    std::string listing;
    for (int i = 0; i < count; ++i) {
        listing += taken(names[i]) + "=";
        listing += taken(texts[i]) + " ";
    }
    EXPECT_EQ(listing, "a=vg/a b=vg/b sub/c=vg/sub/c ");
    std::free(names);
    std::free(texts);

    EXPECT_EQ(qzpref_get_int_list(h_, "g", &names, &numbers, &count), QZPREF_KEY_NOT_FOUND);
    EXPECT_EQ(names, nullptr);
    EXPECT_EQ(numbers, nullptr);
    EXPECT_EQ(count, 0);
}

TEST_F(Handles, ScopeGroupsAndPlatforms)
{
    EXPECT_EQ(qzpref_begin_group(h_, ""), 0);
    EXPECT_EQ(qzpref_begin_group(h_, "g"), 0);
    EXPECT_EQ(taken(qzpref_get_group(h_)), "g");
    qzpref_begin_os_attribute(h_);
    EXPECT_EQ(qzpref_set_int(h_, "here", 1), 0);
    qzpref_begin_os_attribute2(h_, QZPREF_PLATFORM_DARWIN);
    EXPECT_EQ(qzpref_set_int(h_, "there", 1), 0);
    qzpref_begin_os_attribute2(h_, 0);
    EXPECT_EQ(qzpref_set_int(h_, "here", 2), 0);
    qzpref_end_os_attribute(h_);
    int value = 0;
    EXPECT_EQ(qzpref_get_int(h_, "here", &value), 0);
    EXPECT_EQ(value, 2);
    EXPECT_EQ(qzpref_get_int(h_, "there", &value), QZPREF_KEY_NOT_FOUND);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(qzpref_get_type(h_, "there"), QZPREF_TYPE_INT);
    qzpref_end_group(h_);
    qzpref_end_group(h_);
    qzerr_window(-1, [](const char *) -> int { throw std::runtime_error("shown"); });
    EXPECT_THROW(qzpref_begin_group(h_, "a//b"), std::runtime_error);
    qzerr_window(-1, nullptr);
    scene::Messages messages;
    EXPECT_EQ(qzpref_begin_group(h_, "a//b"), QZPREF_INVALID_KEY);
    EXPECT_EQ(taken(qzpref_get_group(h_)), "");
    qzpref_clear(h_);
    EXPECT_EQ(qzpref_get_type(h_, "g/here"), QZPREF_TYPE_NONE);
}

TEST_F(Handles, ThatAreNoneAnswerWithACode)
{
    scene::QtLog log;
    std::size_t none = 1;
    for (const int product : {-1, 16, 99})
        EXPECT_EQ(qzpref_new(&none, static_cast<QZPREF_PRODUCTS>(product)), 1);
    EXPECT_EQ(none, 0u);
    const std::string said = "  -  The product is not recognized by the library.\n";
    EXPECT_EQ(log.text(), "qzpref:qzpref_new :  -1" + said + "qzpref:qzpref_new :  16" + said +
                              "qzpref:qzpref_new :  99" + said);
    qzpref_delete(12345);
    qzpref_delete(none);
    int value = 3;
    EXPECT_EQ(qzpref_get_int(none, "k", &value), QZPREF_FAILURE);
    EXPECT_EQ(qzpref_set_int(none, "k", 1), QZPREF_FAILURE);
    EXPECT_EQ(qzpref_new(nullptr, kProduct), 1);
    EXPECT_EQ(qzpref_get_int(h_, "k", nullptr), QZPREF_FAILURE);
    EXPECT_EQ(qzpref_get_int_list(h_, "k", nullptr, nullptr, nullptr), QZPREF_FAILURE);
    EXPECT_EQ(qzpref_set_string(h_, "k", nullptr), 0);
    EXPECT_EQ(qzpref_set_string(h_, nullptr, "x"), QZPREF_INVALID_KEY);
}

class Wrapper : public scene::PreferenceScene {
protected:
    template <typename Value> void expect_kept(const std::string &key, const Value &value)
    {
        const auto get = [&] { preferences_.get<Value>(key); };
        EXPECT_EQ(thrown<std::out_of_range>(get), "No key: " + key);
        preferences_.set<Value>(key, value);
        EXPECT_EQ(preferences_.get<Value>(key), value);
    }

    Preferences preferences_{kProduct};
};

TEST_F(Wrapper, ReadsAndWritesEveryType)
{
    expect_kept<int>("no/int", 3);
    expect_kept<double>("d", 0.25);
    expect_kept<bool>("b", true);
    expect_kept<std::string>("s", "größe");
    expect_kept<QString>("q", "x");
    EXPECT_EQ(preferences_.get<QString>("s"), QString("größe"));
    EXPECT_EQ(preferences_.get<std::string>("q"), "x");
    EXPECT_EQ(preferences_.get<double>("s"), 0.0) << "a value of another type is no error";
    EXPECT_EQ(preferences_.get<int>("s"), 0);
    EXPECT_TRUE(preferences_.hasKey("b"));
    preferences_.removeKey("b");
    preferences_.removeKey("b");
    EXPECT_FALSE(preferences_.hasKey("b"));
    preferences_.clear();
    EXPECT_FALSE(preferences_.hasKey("q"));
}

TEST_F(Wrapper, CopiesAndMovesShareOneStore)
{
    auto first = std::make_unique<Preferences>(kProduct);
    first->beginGroup("g");
    Preferences copy(*first);
    Preferences moved(std::move(*first));
    copy.set<int>("k", 1);
    EXPECT_EQ(first->get<int>("k"), 1) << "a move leaves its source as it was";
    EXPECT_EQ(moved.getGroup(), "g");
    Preferences assigned(QZPREF_ATELIO);
    assigned.set<int>("kept", 1);
    assigned = moved;
    EXPECT_TRUE(Preferences(QZPREF_ATELIO).hasKey("kept")) << "what was let go of is saved";
    first.reset();
    EXPECT_EQ(assigned.get<int>("k"), 1) << "the first to go takes nothing from the others";
    std::string file;
    assigned.getSettingsFile(file);
    EXPECT_EQ(file, scene::with_slashes(user_file()));
}

} // namespace
