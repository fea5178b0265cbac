#pragma once

#include <QDialog>
#include <QVector>

#include <vector>

class QDial;
class QGridLayout;
class QLabel;
class Settings;
struct RealignDialRow;

// Asks for the grids that notes are moved onto. The dials begin as the settings say, and accepting stores them.
class RealignNotesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit RealignNotesDialog(Settings &settings, QWidget *parent = nullptr);

    // Denominators for SnapGrid: regular first, then the tuplets whose dial is above 0.
    QVector<quint32> grids() const;

public slots:
    void accept() override;

private slots:
    void onRegularChanged() { showValue(0); }
    void onTripletsChanged() { showValue(1); }
    void onQuintupletsChanged() { showValue(2); }
    void onSeptupletsChanged() { showValue(3); }
    void onNonupletsChanged() { showValue(4); }

private:
    struct Dial
    {
        QDial *dial;
        QLabel *value;
    };

    Dial addDial(const RealignDialRow &row, QGridLayout &grid, int column);
    void showValue(int dial);

    Settings &settings_;
    std::vector<Dial> dials_; // as in grids()
};
