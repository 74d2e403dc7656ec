#include "hosts/qt/widgets/WidgetFolderPicker.h"

#include "hosts/qt/widgets/FolderPanel.h"

#include <QApplication>

namespace pryvane {

WidgetFolderPicker::WidgetFolderPicker(std::string volumeFolder)
    : m_volumeFolder(std::move(volumeFolder))
{
    while (m_volumeFolder.ends_with('/'))
        m_volumeFolder.pop_back();
}

std::optional<FileURL> WidgetFolderPicker::pickFolder(const FolderQuestion& question)
{
    FolderPanel panel(question, m_volumeFolder, QApplication::activeWindow());
    panel.exec();
    return panel.chosen();
}

} // namespace pryvane
