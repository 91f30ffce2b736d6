// Any bytes as a preference file: the quick reader must agree with the complete parser, and what
// was read must come back when it is written and read again.

#include "fuzz/require.h"
#include "qzfile/qzpref/key_validation.h"
#include "qzfile/qzpref/plain_reader.h"
#include "qzfile/qzpref/xml_reader.h"
#include "qzfile/qzpref/xml_writer.h"

#include <QtGlobal>

#include <cstdint>
#include <string>

namespace {

using namespace qz::pref;
using qz::fuzz::require;

std::string shown(const Document &document)
{
    std::string text;
    document.for_each_below("", [&](const Document::Entry &entry) {
        text.append(entry.key()) +=
            "\x01" + entry.record().value() + "\x01" + entry.record().comment();
        entry.record().for_each_attribute([&](std::string_view name, std::string_view value) {
            text.append("\x02").append(name).append("=").append(value);
        });
        text += "\n";
    });
    return text;
}

/// Comments change when they hold "--", and what is no name for the store may be one for XML.
bool comes_back_unchanged(const Document &document)
{
    bool plain = true;
    document.for_each_below("", [&](const Document::Entry &entry) {
        plain = plain && entry.record().comment().find("--") == std::string::npos &&
                (entry.record().comment().empty() || entry.record().comment().back() != '-') &&
                entry.record().comment().find('\r') == std::string::npos;
    });
    return plain;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const auto quiet =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static_cast<void>(quiet);
    const QByteArray text(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    Document parsed;
    const bool well_formed = read_xml(text, parsed);

    Document quick;
    const bool sure = read_plain({text.constData(), size}, quick);
    require(!sure || well_formed);
    if (sure) {
        quick.settle();
        require(shown(quick) == shown(parsed));
    }
    if (well_formed && comes_back_unchanged(parsed)) {
        std::string written;
        PreferenceWriter writer(written);
        parsed.for_each_below(
            "", [&](const Document::Entry &entry) { writer.write(entry.key(), entry.record()); });
        writer.finish();
        Document again;
        require(read_preferences(QByteArray::fromStdString(written), again));
        require(shown(again) == shown(parsed));
    }
    return 0;
}
