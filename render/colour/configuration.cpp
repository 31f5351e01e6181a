#include "render/colour/configuration.h"

#include "render/colour/ownconfiguration.h"

#include <OpenColorIO/OpenColorIO.h>

#include <sstream>

namespace ocio = OCIO_NAMESPACE;

namespace brindle::render {

namespace {

/// What the library of colours says, in one line.
QString reasonOf(const std::exception& failure)
{
    return QString::fromUtf8(failure.what()).simplified();
}

class Converter final : public CEL_ColorConverter {
public:
    explicit Converter(const ocio::ConstCPUProcessorRcPtr& processor) : m_processor(processor) {}

    void convert(float* pixels, qsizetype count) const override
    {
        if (m_processor->isNoOp() || count == 0)
            return;
        constexpr int channels = 4;
        ocio::PackedImageDesc row(pixels, long(count), 1, channels);
        m_processor->apply(row);
    }

private:
    ocio::ConstCPUProcessorRcPtr m_processor;
};

class Configuration final : public engine::ColourConfiguration {
public:
    Configuration(const ocio::ConstConfigRcPtr& config, const QString& path) : m_config(config), m_path(path) {}

    QStringList names() const override
    {
        QStringList names;
        for (int i = 0; i < m_config->getNumColorSpaces(); ++i)
            names.append(QString::fromUtf8(m_config->getColorSpaceNameByIndex(i)));
        return names;
    }

    std::shared_ptr<const CEL_ColorConverter> converter(const QString& from, const QString& to,
                                                        QString& error) const override
    {
        try {
            const auto way = m_config->getProcessor(from.toUtf8().constData(), to.toUtf8().constData());
            // The faster forms of powers and logarithms are off by more than 16 bits can tell.
            return std::make_shared<Converter>(
                way->getOptimizedCPUProcessor(ocio::BIT_DEPTH_F32, ocio::BIT_DEPTH_F32, ocio::OPTIMIZATION_LOSSLESS));
        } catch (const std::exception& failure) {
            error = QStringLiteral("Colours can't be converted from %1 to %2: %3").arg(from, to, reasonOf(failure));
            return nullptr;
        }
    }

    QByteArray iccProfile(const QString& name) const override
    {
        return m_path.isEmpty() ? ownIccProfile(name) : QByteArray();
    }

private:
    ocio::ConstConfigRcPtr m_config;
    QString m_path; ///< Empty for our own.
};

} // namespace

std::shared_ptr<const engine::ColourConfiguration> colourConfiguration(const QString& path, QString& error)
{
    try {
        ocio::SetLoggingLevel(ocio::LOGGING_LEVEL_NONE);
        std::istringstream own(ownConfigurationText());
        const auto config = path.isEmpty() ? ocio::Config::CreateFromStream(own)
                                           : ocio::Config::CreateFromFile(path.toLocal8Bit().constData());
        config->validate();
        return std::make_shared<Configuration>(config, path);
    } catch (const std::exception& failure) {
        error = QStringLiteral("The colour configuration %1 can't be read: %2").arg(path, reasonOf(failure));
        return nullptr;
    }
}

} // namespace brindle::render
