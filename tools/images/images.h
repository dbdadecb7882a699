// The pictures by the windows they show.
#pragma once

#include "images/picture_book.h"
#include "images/sample_ledger.h"

namespace tz::images {

void drawNavigator(const PictureBook& book);
void drawReports(const PictureBook& book, SampleLedger& ledger);
void drawClearing(const PictureBook& book, SampleLedger& ledger);
void drawWayToVouchers(const PictureBook& book);
void drawPages(const PictureBook& book, SampleLedger& ledger);
void drawDialogs(const PictureBook& book, SampleLedger& ledger);
void drawHost(const PictureBook& book, SampleLedger& ledger);
void drawControls(const PictureBook& book);

}  // namespace tz::images
