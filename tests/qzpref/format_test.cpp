#include "preference_scene.h"
#include "qzfile/qzpref/document.h"
#include "qzfile/qzpref/key_validation.h"
#include "qzfile/qzpref/preference_file.h"
#include "qzfile/qzpref/xml_reader.h"
#include "qzfile/qzpref/xml_writer.h"

#include <QXmlStreamWriter>

#include <random>

using namespace qz::pref;
using namespace std::string_literals;

namespace {

std::string shown(std::string_view key, const KeyRecord &record)
{
    std::string text = std::string(key) + " =" + record.value();
    record.for_each_attribute([&](std::string_view name, std::string_view value) {
        text += " " + std::string(name) + ":" + std::string(value);
    });
    return record.comment().empty() ? text + "\n" : text + " #" + record.comment() + "\n";
}

std::string shown(const Document &document)
{
    std::string text;
    document.for_each_below(
        "", [&](const Document::Entry &entry) { text += shown(entry.key(), entry.record()); });
    return text;
}

using Reader = bool(const QByteArray &, Document &);

/// What @p reader makes of @p text; "!" in front when it refuses the text.
std::string read_by(Reader &reader, const QByteArray &text)
{
    Document document;
    const bool ok = reader(text, document);
    return (ok ? "" : "!") + shown(document);
}

std::string read_back(const std::string &text)
{
    return read_by(read_preferences, QByteArray::fromStdString(text));
}

QByteArray written(const Document &document)
{
    std::string text;
    PreferenceWriter writer(text);
    document.for_each_below(
        "", [&](const Document::Entry &entry) { writer.write(entry.key(), entry.record()); });
    writer.finish();
    return QByteArray::fromStdString(text);
}

/// The same document through the settings system's own writer, straight from the rules.
QByteArray written_slowly(const Document &document)
{
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement("ApplicationSettings");
    QStringList open;
    document.for_each_below("", [&](const Document::Entry &entry) {
        const QString key = QString::fromStdString(std::string(entry.key()));
        const QStringList components = key.section(':', 0, 0).split('/');
        qsizetype shared = 0;
        while (shared < open.size() - 1 && shared < components.size() - 1 &&
               open[shared] == components[shared])
            ++shared;
        for (qsizetype i = open.size(); i > shared; --i)
            xml.writeEndElement();
        for (qsizetype i = shared; i < components.size(); ++i) {
            if (i + 1 == components.size() && !entry.record().comment().empty())
                xml.writeComment(QString::fromStdString(entry.record().comment()));
            xml.writeStartElement(components[i]);
        }
        entry.record().for_each_attribute([&](std::string_view name, std::string_view value) {
            xml.writeAttribute(QString::fromStdString(std::string(name)),
                               QString::fromStdString(std::string(value)));
        });
        if (key.contains(':')) {
            const QString suffix = key.section(':', 1);
            xml.writeAttribute(suffix.section('=', 0, 0), suffix.section('=', 1));
        }
        xml.writeCharacters(QString::fromStdString(entry.record().value()));
        open = components;
    });
    xml.writeEndDocument();
    return text.replace("\r", "&#13;");
}

struct ReadCase {
    const char *why, *elements, *expected;
};

const ReadCase kReadCases[] = {
    {"groups nest",                 "<a><b dt='int'>1</b><c>x</c></a>", "a/b =1 dt:int\na/c =x\n"},
    {"a platform is a suffix",      "<a dt='int' os='linux'>3</a>",     "a:os=linux =3 dt:int\n" },
    {"a group's platform",          "<a os='x'><b>1</b></a>",           "a:os=x/b =1\n"          },
    {"white space is no value",     "<a> \n\t</a><b></b><c/>",          ""                       },
    {"a value keeps its blanks",    "<a> x </a>",                       "a = x \n"               },
    {"the comment before it",       "<!--old--><!--c--><a>1</a>",       "a =1 #c\n"              },
    {"one before a group is lost",  "<!--c--><g><a>1</a></g>",          "g/a =1\n"               },
    {"other attributes are kept",   "<a z='1' dt='odd' b='2'>v</a>",    "a =v b:2 dt:odd z:1\n"  },
    {"text of the root is lost",    "loose<a>1</a>",                    "a =1\n"                 },
    {"text makes a group a key",    "<g x='1'>t<a>1</a></g>",           "g =t x:1\ng/a =1\n"     },
    {"the last of equal keys",      "<a>1</a><a>2</a>",                 "a =2\n"                 },
    {"entities, numbered ones too", "<a>&lt;&#252;&amp;</a>",           "a =<ü&\n"              },
    {"a section of plain text",     "<a><![CDATA[<x>]]></a>",           "a =<x>\n"               },
    {"a file cut short",            "<a>1</a><b>",                      "!a =1\n"                },
    {"crossing tags",               "<a>1</a><b><c></b></c>",           "!a =1\n"                },
    {"an unknown entity",           "<a>&foo;</a>",                     "!"                      },
};

TEST(PreferenceFormat, Reads)
{
    scene::QtLog log;
    for (const ReadCase &c : kReadCases) {
        SCOPED_TRACE(c.why);
        const bool cut = std::string(c.why) == "a file cut short";
        const char *const end = cut ? "" : "</ApplicationSettings>";
        EXPECT_EQ(read_back(std::string("<ApplicationSettings>") + c.elements + end), c.expected);
    }
    EXPECT_NE(log.text().find("! Error parsing XML configuration file"), std::string::npos);
}

// Whatever keys, values and attributes meet in a file, reading it gives back the same.
TEST(PreferenceFormat, EveryDocumentReadsBackAsItWas)
{
    const char *names[] = {"a", "b", "ab", "a-b", "a.b", "ü", "é", "名"};
    const char *suffixes[] = {"", "", "", ":os=linux", ":os=none", ":os=a=b", ":os=x/y"};
    const char *values[] = {"1",   "a b",         " x ",  "\r\n",    "a\r", "\n y", "<&>\"'",
                            "]]>", "ü\U0001F600", "x\ty", "\u00A0z", "[1]", "]]"};
    const std::string prefixes[] = {"v", "名", "]", "\""};
    const char *comments[] = {"", "", "note", "a<b & c"};
    std::mt19937 engine(7);
    const auto random = [&engine] { return static_cast<unsigned>(engine()); };
    const auto one_of = [&](const auto &list) { return list[random() % std::size(list)]; };
    for (int round = 0; round < 1500; ++round) {
        Document document;
        for (unsigned keys = random() % 12; keys > 0; --keys) {
            std::string key = one_of(names);
            for (unsigned depth = random() % 4; depth > 0; --depth)
                key += std::string("/") + one_of(names);
            KeyRecord record;
            record.set_value(one_of(prefixes) + one_of(values));
            record.set_comment(one_of(comments));
            if (random() % 2)
                record.set_attribute("dt", random() % 2 ? "int" : "strange");
            if (random() % 3 == 0)
                record.set_attribute(random() % 2 ? "alpha" : "zeta", one_of(values));
            document.set(key + one_of(suffixes), std::move(record));
        }
        document.settle();
        const QByteArray text = written(document);
        ASSERT_EQ(text.toStdString(), written_slowly(document).toStdString());
        for (Reader *reader : {read_preferences, read_xml})
            ASSERT_EQ(read_by(*reader, text), shown(document)) << text.toStdString();
    }
}

TEST(PreferenceFormat, CommentsStayWellFormed)
{
    for (const char *comment : {"--", "-", "a--b", "---->", "x-"}) {
        Document document;
        KeyRecord record;
        record.set_value("1");
        record.set_comment(comment);
        document.set("a", record);
        const std::string once = read_by(read_preferences, written(document));
        EXPECT_EQ(once.find("a =1 #"), 0u) << comment << ": " << once;
    }
}

TEST(PreferenceFormat, SettingsSystemUsesTheSameFormat)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath("x.xml");
    const QVariantMap value{
        {"dt",    "int"},
        {"value", "5"  },
        {"q",     "1"  }
    };
    // What could not be read back is refused as a whole; the file stays as it is.
    for (const auto &[key, status] : {std::pair("g/k:os=linux", QSettings::NoError),
                                      std::pair("not a name", QSettings::AccessError)}) {
        QSettings settings(path, getQSettingsFormat());
        settings.setValue(key, value);
        settings.sync();
        EXPECT_EQ(settings.status(), status) << key;
    }
    Document document;
    ASSERT_EQ(read_document(path, document), QZPREF_SUCCESS_);
    EXPECT_EQ(shown(document), "g/k:os=linux =5 dt:int q:1\n");
    // Another name, so that nothing is answered from the settings system's memory.
    const QString copy = directory.filePath("y.xml");
    ASSERT_TRUE(QFile::copy(path, copy));
    EXPECT_EQ(QSettings(copy, getQSettingsFormat()).value("g/k:os=linux").toMap(), value);
}

// Damage of any kind ends in a report and a code, in time that the size allows.
TEST(PreferenceFormat, HostileFilesAreRefusedOrRead)
{
    scene::QtLog log;
    std::string nested, bomb = "<!DOCTYPE x [<!ENTITY a0 'aaaaaaaaaa'>";
    for (int i = 0; i < 200000; ++i)
        nested += "<a>x";
    for (int i = 1; i < 30; ++i) {
        const std::string inner = "&a" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY a" + std::to_string(i) + " '" + inner + inner + inner + inner + "'>";
    }
    bomb += "]><ApplicationSettings><k>&a29;</k></ApplicationSettings>";
    EXPECT_EQ(read_back("<ApplicationSettings>" + nested).front(), '!');
    EXPECT_EQ(read_back(bomb), "!");

    const std::string good = "<ApplicationSettings><g><!--c--><k dt=\"int\">12</k></g>"
                             "<s os=\"linux\">\xC3\xBC</s></ApplicationSettings>";
    for (std::size_t cut = 0; cut < good.size(); ++cut)
        EXPECT_EQ(read_back(good.substr(0, cut)).front(), '!') << cut;
    std::mt19937 random(11);
    for (int round = 0; round < 5000; ++round) {
        std::string bad = good;
        for (unsigned flips = 1 + random() % 4; flips > 0; --flips)
            bad[random() % bad.size()] = static_cast<char>(random());
        ASSERT_EQ(read_back(bad), read_by(read_xml, QByteArray::fromStdString(bad))) << bad;
    }
    const std::string megabytes(5u << 20, 'v');
    EXPECT_EQ(read_back("<ApplicationSettings><k>" + megabytes + "</k></ApplicationSettings>"),
              "k =" + megabytes + "\n");
}

TEST(PreferenceKeys, AreOrderedAsTheSettingsSystemOrdersThem)
{
    const char *keys[] = {"a", "a/b",     "a-b",        "a:os=linux", "a0",
                          "é", "\uE000x", "\U00010400", "\uFFFD"};
    for (const char *a : keys) {
        for (const char *b : keys)
            EXPECT_EQ(KeyOrder()(a, b), QString(a) < QString(b)) << a << " " << b;
    }
}

TEST(PreferenceKeys, AreValidated)
{
    const struct {
        const char *why;
        std::string key;
        bool valid;
    } cases[] = {
        {"plain",                                            "display/colors/background", true },
        {"letters of any script",                            "größe/名前",            true },
        {"dots and hyphens inside",                          "a.b-c/_d",                  true },
        {"empty",                                            "",                          false},
        {"empty component",                                  "a//b",                      false},
        {"leading separator",                                "/a",                        false},
        {"trailing separator",                               "a/",                        false},
        {"digit first",                                      "a/1b",                      false},
        {"blank",                                            "a b",                       false},
        {"a colon would be cut off",                         "x:y",                       false},
        {"a suffix is given by the platform attribute only", "x:os=linux",                false},
        {"not UTF-8",                                        "a\xff",                     false},
        {"the root's name is passed over when read",         "a/ApplicationSettings",     false},
        {"a byte of zero",                                   "a\0b"s,                     false},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        scene::Messages messages;
        EXPECT_EQ(validate_key(c.key), c.valid ? QZPREF_SUCCESS_ : QZPREF_INVALID_KEY);
        EXPECT_EQ(messages.text().empty(), c.valid);
    }
    scene::Messages messages;
    validate_key("good/1abc/x");
    EXPECT_EQ(messages.text().find("WARNING validate_key: Invalid character in the qzpref key "
                                   "'1abc'. "),
              0u);
}

// Index and order must agree with a plain map of keys after any sequence of changes.
TEST(PreferenceDocument, FollowsEveryChange)
{
    std::vector<std::string> keys;
    for (const char *base : {"a", "b", "a/b", "ab"}) {
        for (const char *suffix : {"", ":os=linux", ":os=windows", ":os=odd", ":os=none"})
            keys.push_back(std::string(base) + suffix);
    }
    Document document;
    std::map<std::string, std::string, KeyOrder> model;
    std::mt19937 engine(3);
    const auto random = [&engine] { return static_cast<unsigned>(engine()); };
    for (int round = 0; round < 5000; ++round) {
        const unsigned action = random() % 8;
        std::vector<std::string> some;
        for (unsigned n = action == 0 ? random() % 5 : 1; n > 0; --n)
            some.push_back(keys[random() % keys.size()]);
        if (action < 3) {
            std::size_t expected = 0;
            for (const std::string &key : some)
                expected += model.erase(key);
            ASSERT_EQ(document.remove(some), expected);
        } else {
            KeyRecord record;
            record.set_value(std::to_string(round));
            model[some[0]] = record.value();
            document.set(some[0], std::move(record));
        }
        for (const std::string &key : keys) {
            const KeyRecord *record = document.find(key);
            const auto expected = model.find(key);
            ASSERT_EQ(record ? record->value() : "-",
                      expected == model.end() ? "-" : expected->second);
        }
        for (const char *base : {"a", "a/b"}) {
            const Variants variants = document.variants(base);
            ASSERT_EQ(variants.plain(), document.find(base));
            for (int p = 0; p < 4; ++p) {
                const auto platform = static_cast<QZPREF_PLATFORM>(p);
                ASSERT_EQ(variants.own(platform), document.find(suffixed_key(base, platform)));
            }
        }
        if (action == 7) {
            document.settle();
            std::string in_order, expected;
            document.for_each_below(
                "a", [&](const Document::Entry &entry) { in_order.append(entry.key()) += " "; });
            for (const auto &[key, value] : model)
                expected += key[0] == 'a' ? key + " " : "";
            ASSERT_EQ(in_order, expected);
        }
    }
}

} // namespace
