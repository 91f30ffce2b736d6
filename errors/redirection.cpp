#include "qzerr.hpp"

namespace halcyra::qzlibs {

std::uint64_t RedirectQzerrToPythonStderr::m_count = 0;

RedirectQzerrToPythonStderr::RedirectQzerrToPythonStderr()
{
    ++m_count;
}

RedirectQzerrToPythonStderr::~RedirectQzerrToPythonStderr()
{
    close();
}

void RedirectQzerrToPythonStderr::close()
{
    if (closed_)
        return;
    --m_count;
    closed_ = true;
}

bool RedirectQzerrToPythonStderr::isActive()
{
    return m_count > 0;
}

} // namespace halcyra::qzlibs
