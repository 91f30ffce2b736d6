#pragma once

#include "failing_memory.h"
#include "qzfile/scene.h"

#include <QFile>

namespace scene {

inline const std::string kContents = "first\r\n" + std::string(300'000, 'x') + "\r\nlast";

/// A file that is as it was after each test, with nothing beside it and no stream left open.
class Faults : public Scene {
protected:
    Faults()
    {
        qzfile_path_set(".");
        write(kName, kContents);
        descriptor_ = next_descriptor();
    }

    ~Faults() override
    {
        EXPECT_EQ(read(kName), kContents);
        EXPECT_FALSE(is_there(std::string(kName) + ".tmp"));
        EXPECT_EQ(next_descriptor(), descriptor_);
    }

    // Too long for a text that needs no memory.
    static constexpr char kName[] = "a file with a name of some length";

private:
    /// The number that the next file gets: it grows when a stream is left open.
    static int next_descriptor()
    {
        QFile file(kName);
        file.open(QIODevice::ReadOnly);
        return file.handle();
    }

    int descriptor_ = 0;
};

} // namespace scene
