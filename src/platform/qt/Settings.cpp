#include "platform/Settings.h"

#include "platform/qt/QtText.h"

#include <memory>
#include <QSettings>

namespace {

std::string storePath;

// One file for each application in the user's configuration folder, or the one given store with
// the application as a group above the sections.
std::unique_ptr<QSettings> OpenStore(std::string_view application) {
    if (storePath.empty())
        return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                           QStringLiteral("TideMark"), ToQt(application));
    auto store =
        std::make_unique<QSettings>(QString::fromStdString(storePath), QSettings::IniFormat);
    store->beginGroup(ToQt(application));
    return store;
}

QString PathOf(std::string_view section, std::string_view key) {
    return ToQt(section) + QLatin1Char('/') + ToQt(key);
}

}  // namespace

void UseSettingsStore(const std::string& path) {
    storePath = path;
}

std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view fallback) {
    const QVariant value = OpenStore(application)->value(PathOf(section, key));
    return value.isValid() ? value.toString().toStdString() : std::string(fallback);
}

void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                 std::string_view value) {
    OpenStore(application)->setValue(PathOf(section, key), ToQt(value));
}
