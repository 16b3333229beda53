#include "desktop/stored_lists.h"

#include "base/unicode.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSettings>

namespace quillery {
namespace {

QString encoded(const std::string& bytes) {
  QByteArray result;
  const bool text = isValidUtf8(bytes);
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    // A null byte would end the value in the settings file.
    if (byte == '%' || value == 0 || (!text && value >= 0x80))
      result += '%' + QByteArray(1, byte).toHex().toUpper();
    else
      result += byte;
  }
  return QString::fromUtf8(result);
}

} // namespace

std::optional<std::vector<std::string>> readList(const QSettings& settings, const QString& key) {
  const QVariant value = settings.value(key);
  if (value.typeId() != QMetaType::QString) return std::nullopt;
  const QJsonDocument document = QJsonDocument::fromJson(value.toString().toUtf8());
  if (!document.isArray()) return std::nullopt;
  std::vector<std::string> list;
  const QJsonArray array = document.array();
  for (const QJsonValue& item : array) {
    if (!item.isString()) return std::nullopt;
    list.push_back(QByteArray::fromPercentEncoding(item.toString().toUtf8()).toStdString());
  }
  return list;
}

void writeList(QSettings& settings, const QString& key, const std::vector<std::string>& list) {
  QJsonArray array;
  for (const std::string& text : list) array.append(encoded(text));
  const QByteArray json = QJsonDocument(array).toJson(QJsonDocument::Compact);
  settings.setValue(key, QString::fromUtf8(json));
  settings.sync(); // a program that is killed later has stored it all the same
}

} // namespace quillery
