#pragma once

#include <QMetaType>
#include <QObject>
#include <QString>

namespace bench {

/// A value that is a QObject, as an object handle is, and carries nothing.
class CarriedObject : public QObject {
    Q_OBJECT

public:
    CarriedObject() = default;
    CarriedObject(const CarriedObject&) : QObject() {}
    CarriedObject& operator=(const CarriedObject&) { return *this; }
};

/// The cost of Qt's property system by itself: an object with 34 properties that do nothing but give a member.
class QtObject : public QObject {
    Q_OBJECT
    Q_PROPERTY(int first MEMBER m_number)
    Q_PROPERTY(int p02 MEMBER m_number)
    Q_PROPERTY(int p03 MEMBER m_number)
    Q_PROPERTY(int p04 MEMBER m_number)
    Q_PROPERTY(int p05 MEMBER m_number)
    Q_PROPERTY(int p06 MEMBER m_number)
    Q_PROPERTY(int p07 MEMBER m_number)
    Q_PROPERTY(int p08 MEMBER m_number)
    Q_PROPERTY(int p09 MEMBER m_number)
    Q_PROPERTY(int p10 MEMBER m_number)
    Q_PROPERTY(int p11 MEMBER m_number)
    Q_PROPERTY(int p12 MEMBER m_number)
    Q_PROPERTY(int p13 MEMBER m_number)
    Q_PROPERTY(int p14 MEMBER m_number)
    Q_PROPERTY(int p15 MEMBER m_number)
    Q_PROPERTY(int p16 MEMBER m_number)
    Q_PROPERTY(int p17 MEMBER m_number)
    Q_PROPERTY(int p18 MEMBER m_number)
    Q_PROPERTY(int p19 MEMBER m_number)
    Q_PROPERTY(int p20 MEMBER m_number)
    Q_PROPERTY(int p21 MEMBER m_number)
    Q_PROPERTY(int p22 MEMBER m_number)
    Q_PROPERTY(int p23 MEMBER m_number)
    Q_PROPERTY(int p24 MEMBER m_number)
    Q_PROPERTY(int p25 MEMBER m_number)
    Q_PROPERTY(int p26 MEMBER m_number)
    Q_PROPERTY(int p27 MEMBER m_number)
    Q_PROPERTY(int p28 MEMBER m_number)
    Q_PROPERTY(int p29 MEMBER m_number)
    Q_PROPERTY(int p30 MEMBER m_number)
    Q_PROPERTY(QString text MEMBER m_text)
    Q_PROPERTY(QObject* pointer MEMBER m_pointer)
    Q_PROPERTY(bench::CarriedObject carried READ carried)
    Q_PROPERTY(int last MEMBER m_number)

public:
    CarriedObject carried() const { return m_carried; }

private:
    int m_number = 42;
    QString m_text = QStringLiteral("text");
    QObject* m_pointer = this;
    CarriedObject m_carried;
};

} // namespace bench

Q_DECLARE_METATYPE(bench::CarriedObject)
