#pragma once

#include "qzfile/scene.h"
#include "qzpref.hpp"

#include <QString>

#include <string>
#include <vector>

namespace scene {

constexpr QZPREF_PRODUCTS kProduct = QZPREF_DOVREL;

/// What Qt's message log receives meanwhile, one line a message.
class QtLog {
public:
    QtLog()
    {
        lines().clear();
        previous_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &context,
                                              const QString &text) {
            lines() +=
                (context.file ? std::string(context.file) + ":" : "") + text.toStdString() + "\n";
        });
    }

    ~QtLog() { qInstallMessageHandler(previous_); }

    std::string text() const { return lines(); }

private:
    static std::string &lines()
    {
        static std::string text;
        return text;
    }

    QtMessageHandler previous_;
};

/// A user, a machine and an installation of its own for preferences.
class PreferenceScene : public Scene {
protected:
    PreferenceScene()
    {
        set("HALCYRA_QZPREF_SANDBOX", text("sandbox"));
        set("HALCYRA_MACHINE_PREFERENCE", text("machine.xml"));
        set("HALCYRA_SITE_PREFERENCE", text("site.xml"));
        unset("HALCYRA_QZPREF_TEST");
    }

    std::string user_file(const std::string &release = "2025-3",
                          const std::string &name = "Dovrel.xml") const
    {
        return text("sandbox/Halcyra/" + release + "/" + name);
    }

    /// The elements of a preference file inside its root.
    static std::string document(const std::string &elements)
    {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ApplicationSettings>" + elements +
               "</ApplicationSettings>\n";
    }
};

} // namespace scene
