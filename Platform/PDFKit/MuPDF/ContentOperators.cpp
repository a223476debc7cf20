// SPDX-License-Identifier: Apache-2.0
//
// What the operators of content ask of its reader.
#include "Platform/PDFKit/MuPDF/ContentReader.h"

void ContentReader::install(pdf_processor& processor) {
    using P = pdf_processor;
    using C = fz_context;
    processor.op_q = [](C*, P* p) { of(p).save(); };
    processor.op_Q = [](C*, P* p) { of(p).restore(); };
    processor.op_cm = [](C*, P* p, float a, float b, float c, float d, float e, float f) {
        fz_matrix& matrix = of(p).pen_.state.matrix;
        matrix = fz_concat(fz_make_matrix(a, b, c, d, e, f), matrix);
    };
    // Paths are passed over, but their number must not keep the processor busy for ever.
    processor.op_m = [](C*, P* p, float, float) { of(p).checkTime(); };
    processor.op_l = [](C*, P* p, float, float) { of(p).checkTime(); };
    processor.op_c = [](C*, P* p, float, float, float, float, float, float) { of(p).checkTime(); };
    processor.op_re = [](C*, P* p, float, float, float, float) { of(p).checkTime(); };
    for (auto P::*drawing : {&P::op_h, &P::op_S, &P::op_s, &P::op_F, &P::op_f, &P::op_fstar, &P::op_B,
                             &P::op_Bstar, &P::op_b, &P::op_bstar, &P::op_n, &P::op_W, &P::op_Wstar})
        processor.*drawing = [](C*, P* p) { of(p).checkTime(); };
    processor.op_BT = [](C*, P* p) { of(p).pen_.beginText(); };
    processor.op_Tc = [](C*, P* p, float spacing) { of(p).pen_.state.characterSpacing = spacing; };
    processor.op_Tw = [](C*, P* p, float spacing) { of(p).pen_.state.wordSpacing = spacing; };
    processor.op_Tz = [](C*, P* p, float percent) { of(p).pen_.state.scale = percent / 100; };
    processor.op_TL = [](C*, P* p, float leading) { of(p).pen_.state.leading = leading; };
    processor.op_Ts = [](C*, P* p, float rise) { of(p).pen_.state.rise = rise; };
    processor.op_Tf = [](C*, P* p, const char* name, pdf_font_desc* font, float size) {
        of(p).setFont(name, font, size);
    };
    processor.op_Td = [](C*, P* p, float x, float y) { of(p).pen_.moveLine(x, y); };
    processor.op_TD = [](C*, P* p, float x, float y) {
        of(p).pen_.state.leading = -y;
        of(p).pen_.moveLine(x, y);
    };
    processor.op_Tm = [](C*, P* p, float a, float b, float c, float d, float e, float f) {
        of(p).pen_.setMatrix(fz_make_matrix(a, b, c, d, e, f));
    };
    processor.op_Tstar = [](C*, P* p) { of(p).pen_.nextLine(); };
    processor.op_TJ = [](C*, P* p, pdf_obj* array) { of(p).showArray(array); };
    processor.op_Tj = [](C*, P* p, char* bytes, size_t count) {
        of(p).show(reinterpret_cast<unsigned char*>(bytes), count);
    };
    processor.op_squote = [](C*, P* p, char* bytes, size_t count) {
        of(p).pen_.nextLine();
        of(p).show(reinterpret_cast<unsigned char*>(bytes), count);
    };
    processor.op_dquote = [](C*, P* p, float wordSpacing, float characterSpacing, char* bytes, size_t count) {
        of(p).pen_.state.wordSpacing = wordSpacing;
        of(p).pen_.state.characterSpacing = characterSpacing;
        of(p).pen_.nextLine();
        of(p).show(reinterpret_cast<unsigned char*>(bytes), count);
    };
    processor.op_Do_form = [](C*, P* p, const char*, pdf_obj* form, pdf_obj* resources) {
        of(p).readForm(form, resources);
    };
    processor.op_BMC = [](C*, P* p, const char*) { of(p).beginMarked(nullptr); };
    processor.op_BDC = [](C*, P* p, const char*, pdf_obj*, pdf_obj* properties) {
        of(p).beginMarked(properties);
    };
    processor.op_EMC = [](C*, P* p) { of(p).endMarked(); };
}
