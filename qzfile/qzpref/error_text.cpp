#include "qzfile/qzpref/error_text.h"

namespace qz::pref {

const char *error_text(QZpref_Err code)
{
    switch (code) {
    case QZPREF_ACCESS_ERROR:
        return "Access error in using settings file. This might be due to permissions or a full "
               "disk.";
    case QZPREF_FORMAT_ERROR:
        return "Format error in using settings file. This might not be in proper .xml format.";
    case QZPREF_UNKNOWN_PRODUCT:
        return "The product is not recognized by the library.";
    case QZPREF_LOCK_ERROR:
        return "Failure to set lock on given settings file.";
    default:
        return "";
    }
}

} // namespace qz::pref
