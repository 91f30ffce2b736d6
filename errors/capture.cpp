#include "errors/captured_text.h"
#include "errors/handler_table.h"
#include "qzerr.hpp"

#include <stdexcept>
#include <utility>

using qz::errors::find_handler;
using qz::errors::QzerrHandler;

namespace halcyra::qzlibs {

CaptureQZErr::CaptureQZErr(int id) : id_(id)
{
    QzerrHandler *handler = find_handler(id);
    if (handler == nullptr)
        throw std::out_of_range("Invalid qzerr handle: " + std::to_string(id));
    saved_capturing_ = std::exchange(handler->capturing, true) ? 1 : 0;
    text_ = std::exchange(handler->captured, nullptr);
    saved_suppression_ = std::exchange(handler->printing_suppressed, true);
}

CaptureQZErr::CaptureQZErr(CaptureQZErr &&other) noexcept
    : saved_suppression_(other.saved_suppression_), restored_(std::exchange(other.restored_, true)),
      id_(other.id_), saved_capturing_(other.saved_capturing_),
      text_(std::exchange(other.text_, nullptr))
{}

CaptureQZErr &CaptureQZErr::operator=(CaptureQZErr &&other) noexcept
{
    if (this == &other)
        return *this;
    std::swap(saved_suppression_, other.saved_suppression_);
    std::swap(restored_, other.restored_);
    std::swap(id_, other.id_);
    std::swap(saved_capturing_, other.saved_capturing_);
    std::swap(text_, other.text_);
    // What this object captured before is given up, not given back: its handler stays as it is.
    other.restored_ = true;
    return *this;
}

CaptureQZErr::~CaptureQZErr()
{
    restore();
    release(text_);
}

void CaptureQZErr::restore()
{
    if (restored_)
        return;
    QzerrHandler *handler = find_handler(id_);
    if (handler == nullptr)
        return;
    std::swap(text_, handler->captured);
    handler->capturing = saved_capturing_ != 0;
    if (!handler->capturing)
        release(handler->captured);
    if (!saved_suppression_)
        handler->printing_suppressed = false;
    restored_ = true;
}

std::string CaptureQZErr::getMessages()
{
    if (restored_)
        return std::string(view(text_));
    const QzerrHandler *handler = find_handler(id_);
    if (handler == nullptr)
        return {};
    std::string messages(view(handler->captured));
    qzerr_errclear(id_);
    return messages;
}

std::string CaptureQZErr::getMessagesOrDefault(const std::string &fallback)
{
    std::string messages = getMessages();
    return messages.empty() ? fallback : messages;
}

std::string CaptureQZErr::addMessagesAsDetails(const std::string &text)
{
    const std::string messages = getMessages();
    return messages.empty() ? text : text + ":\n " + messages;
}

} // namespace halcyra::qzlibs
