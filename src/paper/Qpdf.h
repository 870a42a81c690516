#pragma once

// The library that writes into PDFs. Its header about JSON, of which nothing is used here, no clang can read
// as C++20 that comes with Debian 12.
#ifdef __clang__
#define JSON_HH
class JSON;
#endif

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFOutlineDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
