#include "core/host/ut_path.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

bool UT_Path::Exists() const
{
    return QFileInfo::exists(m_path);
}

QString UT_Path::GetExtension() const
{
    return QFileInfo(m_path).suffix();
}

QString UT_Path::GetBaseName() const
{
    return QFileInfo(m_path).completeBaseName();
}

QString UT_Path::GetFileName() const
{
    return QFileInfo(m_path).fileName();
}

QString UT_Path::GetPath() const
{
    return QFileInfo(m_path).path();
}

bool UT_Path::CreateFolder() const
{
    return !m_path.isEmpty() && QDir().mkpath(m_path);
}

void UT_Path::Up()
{
    m_path = QFileInfo(m_path).path();
}

void UT_Path::AddName(const QString& name)
{
    m_path += u'/' + name;
}

void UT_Path::AddExtension(const QString& extension)
{
    if (!extension.isEmpty())
        m_path += u'.' + extension;
}

bool tufile::fileExists(const QString& path)
{
    return QFileInfo::exists(path);
}

bool tufile::MoveDir(const QString& from, const QString& to)
{
    return !fileExists(to) && QDir().mkpath(QFileInfo(to).path()) &&
           std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

QString oswRemapPath::RemapPath2(const QString& path)
{
    const QString separated = QDir::fromNativeSeparators(path);
    const bool isHome = separated == u"~" || separated.startsWith(u"~/");
    return isHome ? QDir::homePath() + separated.mid(1) : separated;
}
