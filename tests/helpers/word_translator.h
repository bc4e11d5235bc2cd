#pragma once

#include <QCoreApplication>
#include <QTranslator>

namespace zel::test {

/// Translates one text of the application for as long as it lives.
class WordTranslator : public QTranslator
{
public:
    /// @param disambiguation null stands for none
    WordTranslator(const char* context, const char* source, const char* disambiguation,
                   const QString& translation)
        : m_context(context)
        , m_source(source)
        , m_disambiguation(disambiguation)
        , m_translation(translation)
    {
        QCoreApplication::installTranslator(this);
    }
    ~WordTranslator() override
    {
        QCoreApplication::removeTranslator(this);
    }

    bool isEmpty() const override
    {
        return false;
    }

    QString translate(const char* context, const char* source, const char* disambiguation,
                      int) const override
    {
        const bool same = qstrcmp(context, m_context) == 0 && qstrcmp(source, m_source) == 0 &&
                          qstrcmp(disambiguation, m_disambiguation) == 0;
        return same ? m_translation : QString();
    }

private:
    const char* m_context;
    const char* m_source;
    const char* m_disambiguation;
    QString m_translation;
};

} // namespace zel::test
