#pragma once

#include <QMap>
#include <QString>

#include <initializer_list>
#include <optional>

namespace brindle::render {

/// What a format leaves open, as "key=value" separated by commas. Each question says what a value may be; the first
/// one that may not be is remembered as the failure.
class WriteOptions {
public:
    /// `known` are the keys that the format has.
    WriteOptions(const QString& text, std::initializer_list<const char*> known);

    /// The number of a key, `standard` where it isn't said.
    int number(const char* key, int standard, int least, int most);
    /// The word of a key, one of a few; the first one where it isn't said.
    QString word(const char* key, std::initializer_list<const char*> words);
    std::optional<QString> text(const char* key) const; ///< Whatever stands there.

    /// One sentence, or an empty text where all is well.
    const QString& failure() const { return m_failure; }

private:
    void fail(const QString& sentence);

    QMap<QString, QString> m_values;
    QString m_failure;
};

} // namespace brindle::render
