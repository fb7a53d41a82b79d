#pragma once

#include <QFile>
#include <QString>
#include <string>
#include <string_view>

// The core speaks UTF-8, windows UTF-16; a path is bytes.
namespace klt {

inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A caption as the text of a label, button or menu item that knows "&" as the sign of an access key, which
/// it shows.
inline QString literally(std::string_view text) {
    return toQString(text).replace('&', "&&");
}

/// A text as a window's title, which knows "[*]" as the place of a sign that there are changes. A maximised
/// document's title is put in brackets, and one of them must not complete that sign either.
inline QString asTitle(std::string_view text) {
    constexpr QChar kNoWidth(0x200B);
    QString title = toQString(text).replace("[*]", "[*][*]");
    return title.endsWith("[*") ? title + kNoWidth : title;
}

/// The bytes of a file name.
inline std::string toPath(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

inline QString fromPath(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

}  // namespace klt
