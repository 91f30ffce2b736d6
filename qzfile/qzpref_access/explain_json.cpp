#include "qzpref.hpp"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

using namespace halcyra::preferences;

namespace {

QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

QJsonValue to_json(const StoredForm &form)
{
    if (!form.present)
        return QJsonValue::Null;
    QJsonObject object{
        {"key", text(form.key)}, {"type", text(form.type_text)}, {"value", text(form.value)}};
    if (!form.comment.empty())
        object.insert("comment", text(form.comment));
    return object;
}

QJsonObject to_json(const LayerReport &layer)
{
    return {{"layer", text(qzpref_source_to_string(layer.source))},
            {"file", text(layer.file)},
            {"exists", layer.exists},
            {"status", static_cast<int>(layer.status)},
            {"keys", static_cast<qint64>(layer.key_count)},
            {"platform_form", to_json(layer.platform_form)},
            {"plain_form", to_json(layer.plain_form)}};
}

QJsonObject to_json(const GetterReport &getter)
{
    return {{"getter", text(getter.getter)},
            {"code", static_cast<int>(getter.code)},
            {"gives_default", getter.gives_default},
            {"value",
             getter.gives_default ? QJsonValue(QJsonValue::Null) : QJsonValue(text(getter.value))}};
}

QJsonObject to_json(const Explanation &explanation)
{
    QJsonArray layers;
    for (const LayerReport &layer : explanation.layers)
        layers.append(to_json(layer));
    QJsonArray getters;
    for (const GetterReport &getter : explanation.getters)
        getters.append(to_json(getter));
    return {{"key", text(explanation.key)},
            {"platform", text(explanation.platform)},
            {"layers", layers},
            {"winner", text(qzpref_source_to_string(explanation.winner))},
            {"platform_form_wins", explanation.platform_form_wins},
            {"reason", text(explanation.reason)},
            {"type", static_cast<int>(explanation.type)},
            {"getters", getters}};
}

} // namespace

int qzpref_explain(QZPREF_PRODUCTS product, const char *key, char **json)
{
    if (!json)
        return QZPREF_FAILURE;
    *json = nullptr;
    if (product_name(product).empty())
        return QZPREF_UNKNOWN_PRODUCT;
    try {
        const Explanation explanation = Inspection(product).explain(key ? key : "");
        const QByteArray document = QJsonDocument(to_json(explanation)).toJson();
        *json = static_cast<char *>(std::malloc(static_cast<std::size_t>(document.size()) + 1));
        if (!*json)
            return QZPREF_FAILURE;
        std::memcpy(*json, document.constData(), static_cast<std::size_t>(document.size()) + 1);
        return explanation.winner == QZPrefSource_NotFound ? QZPREF_KEY_NOT_FOUND : QZPREF_SUCCESS_;
    } catch (const std::exception &) {
        return QZPREF_FAILURE;
    }
}
