#pragma once

#include <QDialog>

namespace veldrane {

// `frmAbout`: the program's title, its version, what it does, and where help is to be had.
class AboutDialog : public QDialog
{
    Q_OBJECT

  public:
    explicit AboutDialog(QWidget* parent);
};

} // namespace veldrane
