#ifndef QZ_ERRORS_MESSAGE_H
#define QZ_ERRORS_MESSAGE_H

namespace qz::errors {

/// While one lives, every message on a stream is followed by a line break: a Fortran program has
/// no way to put one into its text.
class NewlineAfterMessages {
public:
    NewlineAfterMessages();
    ~NewlineAfterMessages();
    NewlineAfterMessages(const NewlineAfterMessages &) = delete;
    NewlineAfterMessages &operator=(const NewlineAfterMessages &) = delete;
};

} // namespace qz::errors

#endif
