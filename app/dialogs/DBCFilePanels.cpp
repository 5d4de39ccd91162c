// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCFilePanels.h"

#include "app/desktop/DBCPaths.h"
#include "carddb/DBCPackageLayout.h"

#include <QDir>
#include <QFileIconProvider>
#include <QLineEdit>

namespace {

// Gives packages the icon of a document, because the user sees a package as one item.
class PackageIcons : public QFileIconProvider {
public:
    QIcon icon(const QFileInfo& info) const override
    {
        return DBCPaths::isPackage(info.filePath())
            ? QFileIconProvider::icon(QFileIconProvider::File)
            : QFileIconProvider::icon(info);
    }
};

QFileIconProvider& packageIcons()
{
    static PackageIcons icons;
    return icons;
}

} // namespace

DBCFolderPanel::DBCFolderPanel(
    QWidget* parent, const QString& title, const QString& folder, NewFolders newFolders)
    : QFileDialog(parent, title, folder)
{
    setFileMode(QFileDialog::Directory);
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::ShowDirsOnly);
    setOption(QFileDialog::ReadOnly, newFolders == NewFolders::Forbidden);
}

DBCPackagePanel::DBCPackagePanel(QWidget* parent, const QString& title, const QString& start)
    : QFileDialog(parent, title)
{
    setFileMode(QFileDialog::Directory);
    setOptions(
        QFileDialog::DontUseNativeDialog | QFileDialog::ShowDirsOnly | QFileDialog::ReadOnly);
    setIconProvider(&packageIcons());
    connect(this, &QFileDialog::directoryEntered, this, &DBCPackagePanel::stayOutsidePackages);

    const QFileInfo info(start);
    if (info.suffix() == QStringView(DBCPackageLayout::extension)) {
        setDirectory(info.path());
        selectFile(info.fileName());
    } else {
        setDirectory(start);
    }
}

void DBCPackagePanel::accept()
{
    const QString path = chosenPath();
    if (DBCPaths::isPackage(path))
        done(QDialog::Accepted);
    else if (QFileInfo(path).isDir())
        setDirectory(path);
}

// Called after a double click on a folder, when the toolkit has already entered it. If the folder
// is a package, the panel goes back to the parent folder and chooses the package.
void DBCPackagePanel::stayOutsidePackages(const QString& entered)
{
    if (!DBCPaths::isPackage(entered))
        return;
    const QFileInfo package(entered);
    setDirectory(package.path());
    selectFile(package.fileName());
    accept();
}

QString DBCPackagePanel::chosenPath() const
{
    return selectedFiles().value(0);
}
