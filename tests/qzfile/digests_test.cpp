#include "qzfile/scene.h"

#include <QByteArray>

#include <cstdio>

using Digests = scene::Scene;

namespace {

using Digest = unsigned char[16];

std::string hex(const Digest &digest)
{
    return QByteArray(reinterpret_cast<const char *>(digest), sizeof digest).toHex().toStdString();
}

constexpr char kNoDigest[] = "00000000000000000000000000000000";

const std::string kLong(200'000, 'a'); // more than is read at a time

} // namespace

TEST_F(Digests, OfTextFileAndInput)
{
    const std::pair<std::string, const char *> cases[] = {
        {"",               "d41d8cd98f00b204e9800998ecf8427e"},
        {"abc",            "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        {kLong,            "561b1994f6baacd6e5eaf4baaa12849f"},
    };

    for (const auto &[text, expected] : cases) {
        write("file", text);
        Digest of_text = {1}, of_file = {1}, of_input = {1};
        EXPECT_EQ(qzfile_md5_string(of_text, text.c_str()), 1);
        EXPECT_EQ(qzfile_md5_file(of_file, "file"), 0);
        ASSERT_NE(std::freopen("file", "rb", stdin), nullptr);
        EXPECT_EQ(qzfile_md5_filter(of_input), 0);
        EXPECT_TRUE(std::feof(stdin)) << "the input is still open";
        for (const Digest *digest : {&of_text, &of_file, &of_input})
            EXPECT_EQ(hex(*digest), expected);
    }
}

TEST_F(Digests, OfNothing)
{
    std::filesystem::create_directory("directory");
    Digest digest = {1};
    const char *const no_path = nullptr;
    for (const char *path : {"missing", "directory", "", no_path}) {
        EXPECT_EQ(qzfile_md5_file(digest, path), 1);
        EXPECT_EQ(hex(digest), kNoDigest);
    }
    EXPECT_EQ(qzfile_md5_string(digest, nullptr), 0);
    EXPECT_EQ(hex(digest), kNoDigest);
}

TEST_F(Digests, PathsAreTheSystemsOwn)
{
    touch("data/file");
    Digest digest = {1};
    qzfile_path_set("data");
    EXPECT_EQ(qzfile_md5_file(digest, "file"), 1) << "nothing is searched";
    EXPECT_EQ(qzfile_md5_file(digest, "data/file"), 0);
    touch("a\\b");
    EXPECT_EQ(qzfile_md5_file(digest, "a\\b"), is_there("a\\b") ? 0 : 1);
}
