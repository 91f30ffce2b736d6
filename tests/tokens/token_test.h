/** @file
 *  What the token tests share: a list for the length of a test, and what the library reported.
 */
#pragma once

#include "qzerr.hpp"
#include "qztoken.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

struct Sets {
    const char *separators = nullptr;
    const char *pairs = nullptr;
    const char *comments = nullptr;
    const char *escapes = nullptr;
    const char *singles = nullptr;
};

/// A token list that is deleted at the end of the scope.
class List {
public:
    explicit List(const char *text = nullptr, const Sets &sets = {})
    {
        qztoken_new(&handle_, text, sets.separators, sets.pairs, sets.comments, sets.escapes,
                    sets.singles);
    }

    explicit List(std::initializer_list<const char *> tokens) : List()
    {
        for (const char *token : tokens)
            qztoken_add(handle_, token);
    }

    List(const List &) = delete;
    List &operator=(const List &) = delete;

    ~List()
    {
        if (qztoken_in_use(handle_))
            qztoken_delete(handle_);
    }

    operator int() const { return handle_; }

    /// Each token in brackets: "[a][b c][]".
    std::string text() const
    {
        std::string text;
        for (int i = 0; i < qztoken_num(handle_); ++i)
            text.append("[").append(qztoken_get_token(handle_, i)).append("]");
        return text;
    }

private:
    int handle_ = -1;
};

/// Everything that is reported on the library's handler while @p action runs.
template <typename Action> std::string messages_of(Action action)
{
    halcyra::qzlibs::CaptureQZErr capture(-1);
    action();
    return capture.getMessages();
}
