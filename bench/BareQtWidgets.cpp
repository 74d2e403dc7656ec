// The peer of the window's start-up: a bare Qt window of the same size with a small table.
#include <QApplication>
#include <QTableWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QTableWidget table(5, 3);
    for (int row = 0; row < table.rowCount(); ++row)
        for (int column = 0; column < table.columnCount(); ++column)
            table.setItem(row, column, new QTableWidgetItem(QStringLiteral("item")));
    table.resize(1100, 720);
    table.show();
    return QApplication::exec();
}
