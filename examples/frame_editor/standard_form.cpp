#include "examples/frame_editor/standard_form.h"

#include "examples/frame_editor/member_property.h"

#include <QObject>

#include <optional>
#include <string>

namespace frame_editor {

namespace {

using zel::qt::HintTree;

FormField field(const char* property, const char* editor)
{
    FormField result;
    result.property = findMemberProperty(QLatin1String(property));
    result.hints.put_child("editor", HintTree(boost::any(std::string(editor))));
    return result;
}

FormField text(const char* property, int length)
{
    FormField result = field(property, "lineedit");
    result.hints.put_child("validator.type", HintTree(boost::any(std::string("string"))));
    result.hints.put_child("validator.max_length", HintTree(boost::any(length)));
    return result;
}

FormField quantity(const char* property, double minimum, double maximum)
{
    FormField result = field(property, "quantity");
    result.hints.put_child("minimum", HintTree(boost::any(minimum)));
    result.hints.put_child("maximum", HintTree(boost::any(maximum)));
    return result;
}

} // namespace

Form standardForm()
{
    Form form;
    form.groups = {
        {QObject::tr("Member"),
         nullptr,
         {text("name", 40), field("kind", "enumbox"), field("section", "picture"),
          field("material", "search"), quantity("elastic_modulus", 1e3, 1e9),
          quantity("length_offset", -10.0, 10.0),
          quantity("rotation", -6.283185307179586, 6.283185307179586),
          quantity("thickness", 0.0, 0.5)}},
        {QObject::tr("Loads"),
         nullptr,
         {quantity("line_load", -1000.0, 1000.0), field("load_direction", "radio"),
          quantity("moment", -10000.0, 10000.0),
          quantity("temperature_difference", -200.0, 200.0)}},
        {QObject::tr("Ends"),
         nullptr,
         {field("support", "enumbox"), field("hinge_start", "check"), field("hinge_end", "check")}},
        {QObject::tr("Bedded foundation"),
         findMemberProperty(QStringLiteral("bedded")),
         {quantity("bedding_modulus", 0.0, 1e7)}},
        {QObject::tr("Remarks"), nullptr, {text("note", 1000), field("drawing", "file")}},
    };
    return form;
}

} // namespace frame_editor
