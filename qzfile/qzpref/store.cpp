#include "platform/native_path.h"
#include "qzfile.hpp"
#include "qzfile/qzpref/error_text.h"
#include "qzfile/qzpref/file_lock.h"
#include "qzfile/qzpref/key_validation.h"
#include "qzfile/qzpref/products.h"
#include "qzfile/qzpref/store_session.h"
#include "qzpref.hpp"

#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <boost/filesystem/operations.hpp>

#include <stdexcept>

using namespace qz::pref;

namespace {

/// @p path from the root on; one that names nothing on this system is not taken for a name in the
/// current directory.
QString absolute(const QString &path)
{
    const bool names_nothing =
        qz::platform::native_path(QFile::encodeName(path).toStdString()).empty();
    return names_nothing ? path : QFileInfo(path).absoluteFilePath();
}

} // namespace

QZPREF::QZPREF(QZPREF_PRODUCTS product, bool migrate)
    : product_(product), os_attribute_(QZPREF_PLATFORM_NONE)
{
    // Kept until this store counts: else the last of the others takes the layers away in between.
    const std::lock_guard<std::recursive_mutex> library(library_mutex());
    const QZpref_Err failure = initialize_handle(migrate);
    if (failure) {
        settings_.reset();
        throw std::runtime_error(error_text(failure));
    }
    store_opened();
}

QZPREF::QZPREF(const QZPREF &other)
    : product_(other.product_), os_attribute_(other.os_attribute_), settings_(other.settings_)
{
    store_opened();
}

QZPREF &QZPREF::operator=(const QZPREF &other)
{
    // Nobody else may hold the store that is let go of, and with it would go what is not saved.
    if (settings_ != other.settings_)
        syncSettings();
    product_ = other.product_;
    os_attribute_ = other.os_attribute_;
    settings_ = other.settings_;
    return *this;
}

QZPREF::~QZPREF()
{
    syncSettings();
    settings_.reset();
    store_closed();
}

QZpref_Err QZPREF::initialize_handle(bool migrate)
{
    if (!is_product(product_))
        return QZPREF_UNKNOWN_PRODUCT;
    scan_profile();

    const QString release = QString::fromStdString(halcyra::release_name());
    const QString path =
        absolute(halcyra::preferences::internal::get_qzpref_file(product_, release));
    FileLock lock(path, FileLock::Mode::Shared);
    if (const QZpref_Err failure = lock.acquire())
        return failure;
    settings_ = std::make_shared<StoreSession>(path);
    PreferenceFile &file = *settings_->file;
    QZpref_Err status = file.refresh();

    if (!file.exists()) {
        if (migrate)
            migrate_preferences();
        else if (const QZpref_Err failure = create_empty_preference_file())
            return failure;
    }
    if (!status)
        return QZPREF_SUCCESS_;
    qWarning().noquote().nospace() << "QZPREF::initialize_handle: Loading setting(" << path
                                   << ") failed. " << error_text(status);
    return status == QZPREF_FORMAT_ERROR ? discard_corrupt_file() : status;
}

QZpref_Err QZPREF::create_empty_preference_file()
{
    namespace fs = boost::filesystem;
    using halcyra::preferences::internal::get_qzpref_directory;
    if (QFileInfo(settings_->file->path()).isRelative())
        return QZPREF_FAILURE;
    boost::system::error_code error;
    const fs::path directory = get_qzpref_directory(halcyra::release_name());
    if (!fs::exists(directory, error))
        fs::create_directories(directory, error);
    QFile file(settings_->file->path());
    file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    file.close();
    return settings_->file->exists() ? QZPREF_SUCCESS_ : QZPREF_FAILURE;
}

QZpref_Err QZPREF::discard_corrupt_file()
{
    const QString path = settings_->file->path();
    FileLock lock(path + QStringLiteral(".corrupt"), FileLock::Mode::Exclusive);
    if (lock.acquire())
        return QZPREF_FORMAT_ERROR;
    QFile::remove(path);
    return settings_->file->refresh();
}

void QZPREF::clearSettings()
{
    if (!settings_)
        return;
    settings_->file->clear();
    settings_->auto_save.request();
}

void QZPREF::getSettingsFile(std::string &path) const
{
    path = settings_ ? QFile::encodeName(settings_->file->path()).toStdString() : std::string();
}

QZpref_Err QZPREF::beginGroup(const std::string &group)
{
    if (!settings_)
        return QZPREF_FAILURE;
    if (!group.empty()) {
        if (const QZpref_Err failure = validate_key(group))
            return failure;
    }
    settings_->groups.enter(group);
    return QZPREF_SUCCESS_;
}

void QZPREF::endGroup()
{
    if (settings_)
        settings_->groups.leave();
}

std::string QZPREF::getGroup() const
{
    return settings_ ? settings_->groups.path() : std::string();
}

void QZPREF::beginOsAttribute(QZPREF_PLATFORM platform)
{
    os_attribute_ = platform == QZPREF_PLATFORM_NONE ? current_platform() : platform;
}

void QZPREF::endOsAttribute()
{
    os_attribute_ = QZPREF_PLATFORM_NONE;
}

QZpref_Err QZPREF::syncSettings()
{
    return settings_ ? save_under_lock(*settings_->file) : QZPREF_FAILURE;
}
