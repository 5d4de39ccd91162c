// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCLocalizedWidgets.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QWidget>

#include <array>

namespace {

constexpr std::array<const char*, 6> textProperties {
    "text", "title", "windowTitle", "toolTip", "accessibleName", "accessibleDescription"};

void localizeObject(QObject& object)
{
    for (const char* const property : textProperties) {
        const QString key = object.property(property).toString();
        if (key.startsWith(QLatin1StringView("IDS_")))
            object.setProperty(property, getLocalString(key));
    }
}

} // namespace

void localizeWidgets(QWidget& root)
{
    localizeObject(root);
    for (QObject* const object : root.findChildren<QObject*>())
        localizeObject(*object);
}
