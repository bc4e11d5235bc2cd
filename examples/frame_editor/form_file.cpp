#include "examples/frame_editor/file_error.h"
#include "examples/frame_editor/form.h"
#include "examples/frame_editor/form_editors.h"
#include "examples/frame_editor/form_texts.h"
#include "examples/frame_editor/json_reading.h"
#include "examples/frame_editor/member_property.h"

#include "qt/inc/factories.h"

#include <QCoreApplication>
#include <QDir>
#include <QSet>
#include <QWidget>

#include <memory>

/// The resources of a static library are nobody's until someone asks for them; the macro wants a
/// function of the global namespace.
static void initFrameEditorResources()
{
    Q_INIT_RESOURCE(frame_editor);
}

namespace frame_editor {

namespace {

/// A model with one of everything, so that no list is empty.
FrameModel sampleModel()
{
    FrameModel model;
    model.sections.resize(1);
    model.sections.front().name = QStringLiteral("Section");
    model.sections.front().depth = 0.1;
    model.materials.resize(1);
    model.materials.front().name = QStringLiteral("Material");
    return model;
}

class FormReader
{
public:
    FormReader()
        : m_registry(formRegistry(sampleModel()))
    {
        registerFormEditors();
    }

    Form read(const JsonReading& root)
    {
        root.allowOnly({QStringLiteral("format"), QStringLiteral("version"),
                        QStringLiteral("title"), QStringLiteral("groups")});
        Form form;
        form.title = translatedFormText(root.member("title").text());
        const JsonReading groups = root.member("groups");
        for (int i = 0; i < groups.size(); ++i) {
            form.groups.push_back(readGroup(groups.item(i)));
        }
        return form;
    }

private:
    FormGroup readGroup(const JsonReading& reading)
    {
        reading.allowOnly(
            {QStringLiteral("title"), QStringLiteral("property"), QStringLiteral("fields")});
        FormGroup group;
        group.title = translatedFormText(reading.member("title").text());
        if (reading.has("property")) {
            group.property = &takeProperty(reading.member("property"));
            if (group.property->kind != PropertyKind::Flag) {
                reading.member("property")
                    .fail(QObject::tr("a group is switched by a property that is yes or no"));
            }
        }
        const JsonReading fields = reading.member("fields");
        for (int i = 0; i < fields.size(); ++i) {
            group.fields.push_back(readField(fields.item(i)));
        }
        return group;
    }

    FormField readField(const JsonReading& reading)
    {
        reading.allowOnly(
            {QStringLiteral("property"), QStringLiteral("caption"), QStringLiteral("hints")});
        FormField field;
        field.property = &takeProperty(reading.member("property"));
        field.caption = reading.has("caption")
                            ? translatedFormText(reading.member("caption").text())
                            : field.property->label;
        const JsonReading hints = reading.member("hints");
        hints.allowOnly(keysOf(hints.value())); // it is an object
        field.description = toQt(hints.value()).toObject();
        tryEditor(field, hints);
        return field;
    }

    const MemberProperty& takeProperty(const JsonReading& reading)
    {
        const QString id = reading.text();
        const MemberProperty* property = findMemberProperty(id);
        if (!property) {
            reading.fail(QObject::tr("members have no property \"%1\"").arg(id));
        }
        if (m_taken.contains(id)) {
            reading.fail(QObject::tr("the form has a field for \"%1\" already").arg(id));
        }
        m_taken.insert(id);
        return *property;
    }

    void tryEditor(const FormField& field, const JsonReading& reading) const
    {
        QString problem;
        try {
            const zel::qt::HintTree hints = hintsOf(field, m_registry);
            QWidget parent;
            if (field.description.contains(QStringLiteral("optional"))) {
                problem = QObject::tr("every member has a value here: \"optional\" has no meaning");
            } else {
                problem = misfitOf(*field.property, hints,
                                   zel::qt::createEditorFromHints(&parent, hints).editor);
            }
        } catch (const zel::qt::HintJsonError& error) {
            const QString message = QString::fromUtf8(error.what());
            reading.failInside(error.path().mid(1), message.mid(error.path().size() + 2));
        } catch (const std::exception& error) {
            problem = QString::fromUtf8(error.what());
        }
        if (!problem.isEmpty()) {
            reading.fail(problem);
        }
    }

    static QStringList keysOf(const JsonValue& value)
    {
        QStringList keys;
        for (const JsonValue::Member& member : value.members) {
            keys << member.first;
        }
        return keys;
    }

    zel::qt::HintRegistry m_registry;
    QSet<QString> m_taken;
};

} // namespace

Form readForm(const QByteArray& text, const QString& fileName)
{
    const JsonDocument document(text, fileName);
    return FormReader().read(document.root("frame_form"));
}

Form loadForm(const QString& fileName)
{
    return readForm(readWholeFile(fileName), fileName);
}

QStringList formFiles()
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char* place : {"forms", FRAME_EDITOR_DATA "/forms"}) {
        const QDir folder(program.filePath(QLatin1String(place)));
        QStringList files;
        const QStringList names =
            folder.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
        for (const QString& name : names) {
            files << QDir::cleanPath(folder.filePath(name));
        }
        if (!files.isEmpty()) {
            return files;
        }
    }
    return {};
}

Form standardForm()
{
    const QStringList files = formFiles();
    for (const QString& file : files) {
        if (file.endsWith(QStringLiteral("/member.json"))) {
            return loadForm(file);
        }
    }
    return builtInForm();
}

Form builtInForm()
{
    initFrameEditorResources();
    return loadForm(QStringLiteral(":/frame_editor/forms/member.json"));
}

} // namespace frame_editor
