// What nearly every file of this folder reads of the toolkit, compiled once.
#pragma once

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>
#include <QToolButton>
#include <QWidget>
