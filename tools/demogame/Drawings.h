#pragma once

#include <QPainter>

// One drawing for each instrument kind, on a transparent square of this side.
constexpr int drawingSize = 32;

void drawAccordion(QPainter &painter);
void drawBass(QPainter &painter);
void drawBells(QPainter &painter);
void drawChoir(QPainter &painter);
void drawDrums(QPainter &painter);
void drawFiddle(QPainter &painter);
void drawFlute(QPainter &painter);
void drawHarp(QPainter &painter);
void drawLute(QPainter &painter);
void drawMarimba(QPainter &painter);
void drawMusicBox(QPainter &painter);
void drawOboe(QPainter &painter);
void drawOrgan(QPainter &painter);
void drawPanpipes(QPainter &painter);
