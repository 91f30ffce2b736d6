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

struct DigestCase {
    std::string text;
    const char *digest;
};

const DigestCase kDigestCases[] = {
    {"",               "d41d8cd98f00b204e9800998ecf8427e"},
    {"abc",            "900150983cd24fb0d6963f7d28e17f72"},
    {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
    {kLong,            "561b1994f6baacd6e5eaf4baaa12849f"},
};

} // namespace

TEST_F(Digests, OfTextFileAndInput)
{
    for (const DigestCase &c : kDigestCases) {
        SCOPED_TRACE(c.text.substr(0, 20));
        write("file", c.text);
        Digest of_text = {1};
        Digest of_file = {1};
        Digest of_input = {1};
        EXPECT_EQ(qzfile_md5_string(of_text, c.text.c_str()), 1);
        EXPECT_EQ(qzfile_md5_file(of_file, text("file").c_str()), 0);
        ASSERT_NE(std::freopen(text("file").c_str(), "rb", stdin), nullptr);
        EXPECT_EQ(qzfile_md5_filter(of_input), 0);
        EXPECT_TRUE(std::feof(stdin)) << "the input is still open";
        EXPECT_EQ(hex(of_text), c.digest);
        EXPECT_EQ(hex(of_file), c.digest);
        EXPECT_EQ(hex(of_input), c.digest);
    }
}

TEST_F(Digests, OfNothing)
{
    std::filesystem::create_directory(root_ / "directory");
    Digest digest = {1};
    for (const char *path : {"missing", "directory", ""}) {
        EXPECT_EQ(qzfile_md5_file(digest, path), 1) << path;
        EXPECT_EQ(hex(digest), kNoDigest);
    }
    EXPECT_EQ(qzfile_md5_file(digest, nullptr), 1);
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
