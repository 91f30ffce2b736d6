#pragma once

#include "qzfile/scene.h"

#include <QJsonDocument>
#include <QProcess>
#include <QSysInfo>

#include <algorithm>

namespace program {

/// What one run of qz left behind.
struct Answer {
    int code = -1;
    std::string out, err;
};

/// What a program has written, with the line ends of C: on Windows its streams write others.
inline std::string text_of(QByteArray written)
{
    if (QSysInfo::productType() == QLatin1String("windows"))
        written.replace("\r\n", "\n");
    return written.toStdString();
}

/// The words of @p line; '...' holds a word with blanks, or an empty one.
inline QStringList words_of(const std::string &line)
{
    QStringList words;
    for (std::size_t at = 0; (at = line.find_first_not_of(' ', at)) != std::string::npos;) {
        const bool quoted = line[at] == '\'';
        at += quoted;
        const std::size_t end = std::min(line.find(quoted ? '\'' : ' ', at), line.size());
        words += QString::fromStdString(line.substr(at, end - at));
        at = end + quoted;
    }
    return words;
}

/// Runs qz with the words of @p line in this process's environment.
inline Answer run(const std::string &line, const std::string &input = {})
{
    QProcess process;
    process.start(QStringLiteral(QZ_PROGRAM), words_of(line));
    process.write(input.data(), static_cast<qint64>(input.size()));
    process.closeWriteChannel();
    Answer answer;
    if (process.waitForFinished() && process.exitStatus() == QProcess::NormalExit)
        answer.code = process.exitCode();
    answer.out = text_of(process.readAllStandardOutput());
    answer.err = text_of(process.readAllStandardError());
    return answer;
}

/// What the program answers as JSON; it must not fail.
inline QJsonDocument json(const std::string &line, const std::string &input = {})
{
    const Answer answer = run(line + " --json", input);
    EXPECT_EQ(answer.code, 0) << line << '\n' << answer.err;
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(answer.out));
    EXPECT_FALSE(document.isNull()) << line << '\n' << answer.out;
    return document;
}

/// One command line, and all that it must give.
struct Case {
    const char *line;
    int code;
    const char *out;   ///< the whole of standard output; "@" stands for the working directory
    const char *err;   ///< a part of standard error; empty when nothing may be written there
    const char *input; ///< standard input
};

inline void expect(const Case &c)
{
    SCOPED_TRACE(c.line);
    const QString here = QString::fromStdString(std::filesystem::current_path().string());
    const std::string out = QString(c.out).replace('@', here).toStdString();
    const Answer answer = run(c.line, c.input ? c.input : "");
    EXPECT_EQ(answer.code, c.code) << answer.err;
    EXPECT_EQ(scene::with_slashes(answer.out), scene::with_slashes(out));
    if (*c.err)
        EXPECT_NE(answer.err.find(c.err), std::string::npos) << answer.err;
    else
        EXPECT_EQ(answer.err, "");
}

template <std::size_t count> void expect_all(const Case (&cases)[count])
{
    for (const Case &c : cases)
        expect(c);
}

} // namespace program
