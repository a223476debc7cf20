// SPDX-License-Identifier: Apache-2.0
//
// What is read of a page, in the page's own language. The script runs in a world of its own: nothing that the
// page's scripts have defined reaches it. Elements can still hide properties of their documents and forms
// behind their names, so that every property is read through its getter.
//
// The answer is a sequence of fields, each its length in UTF-16 units, a colon and the text. For every frame:
//
//   path     the frame's place in its parent and the parents' in theirs, outermost first, "1/0/"; "" for the
//            main frame
//   count    of child frames
//   URL, title
//   text     behind "t"; "n" when the frame has no document that can be read
//   nodes    one field each in document order: "t" and the text; "o" for others; "e", "h", "i" for an element
//            of any kind, of HTML, an HTML image; the same in capitals when three fields follow, the display
//            of the element's style attribute, the alternative text, and the title; ")" ends an element
//   "."
#pragma once

inline constexpr const char kPageScript[] = R"js((function (mode) {
"use strict";
const getter = (type, name) => {
    const get = Object.getOwnPropertyDescriptor(type.prototype, name).get;
    return object => get.call(object);
};
const kHTML = "http://www.w3.org/1999/xhtml", kSVG = "http://www.w3.org/2000/svg";
const nodeType = getter(Node, "nodeType"), firstChild = getter(Node, "firstChild"),
      nextSibling = getter(Node, "nextSibling"), parentNode = getter(Node, "parentNode"),
      data = getter(CharacterData, "data"),
      localName = getter(Element, "localName"), namespaceURI = getter(Element, "namespaceURI"),
      documentElement = getter(Document, "documentElement"), documentTitle = getter(Document, "title"),
      documentURL = getter(Document, "URL"), innerText = getter(HTMLElement, "innerText"),
      styles = {[kHTML]: getter(HTMLElement, "style"), [kSVG]: getter(SVGElement, "style")};
const getAttribute = Element.prototype.getAttribute, getClientRects = Element.prototype.getClientRects,
      getPropertyValue = CSSStyleDeclaration.prototype.getPropertyValue,
      setProperty = CSSStyleDeclaration.prototype.setProperty, getSelection = Document.prototype.getSelection,
      querySelectorAll = Document.prototype.querySelectorAll, createElement = Document.prototype.createElement,
      optionsOf = getter(HTMLSelectElement, "options"), optionText = getter(HTMLOptionElement, "text"),
      appendNodes = Element.prototype.append, insertBefore = Element.prototype.before,
      removeNode = Element.prototype.remove;

let out = "";
const put = text => { out += text.length + ":" + text; };
const attribute = (element, name) => getAttribute.call(element, name) || "";

function display(element, namespace) {
    const style = styles[namespace];
    if (!style || getAttribute.call(element, "style") === null) return "";
    return getPropertyValue.call(style(element), "display");
}

function putElement(element) {
    const namespace = namespaceURI(element), isHTML = namespace === kHTML;
    const kind = isHTML ? localName(element) === "img" ? "i" : "h" : "e";
    const shown = display(element, namespace);
    const alt = kind === "i" ? attribute(element, "alt") : "", title = isHTML ? attribute(element, "title") : "";
    if (!shown && !alt && !title) return put(kind);
    put(kind.toUpperCase());
    put(shown);
    put(alt);
    put(title);
}

function putNode(node) {
    switch (nodeType(node)) {
    case 1: return putElement(node);
    case 3: case 4: return put("t" + data(node));
    default: return put("o");
    }
}

function putNodes(root) {
    let node = firstChild(root);
    while (node) {
        putNode(node);
        let next = firstChild(node);
        while (!next) {
            if (nodeType(node) === 1) put(")");
            next = nextSibling(node);
            if (next) break;
            node = parentNode(node);
            if (node === root) return;
        }
        node = next;
    }
}

// Menus show their options when they are opened. For as long as the text is read they stand in lines before
// their menus.
function openMenus(document) {
    const opened = [];
    for (const menu of querySelectorAll.call(document, "select")) {
        if (namespaceURI(menu) !== kHTML || !getClientRects.call(menu).length) continue;
        const list = createElement.call(document, "div");
        setProperty.call(styles[kHTML](list), "display", "block", "important");
        setProperty.call(styles[kHTML](list), "white-space", "pre", "important");
        appendNodes.call(list, Array.from(optionsOf(menu), optionText).join("\n"));
        insertBefore.call(menu, list);
        opened.push(list);
    }
    return opened;
}

function renderedText(document) {
    const root = documentElement(document);
    if (!root) return "";
    // Of an element that is not rendered innerText is all text that is in it.
    if (namespaceURI(root) === kHTML && getClientRects.call(root).length) {
        const menus = openMenus(document);
        const text = innerText(root);
        for (const menu of menus) removeNode.call(menu);
        return text;
    }
    const selection = getSelection.call(document);
    if (!selection) return "";
    selection.selectAllChildren(document);
    const text = selection.toString();
    selection.removeAllRanges();
    return text;
}

function documentOf(frame) {
    try { return frame.document; } catch (refusal) { return null; }
}

function putFrame(frame, path) {
    const document = documentOf(frame);
    put(path);
    put(String(frame.length));
    put(document ? documentURL(document) : "");
    put(document ? documentTitle(document) : "");
    put(document ? "t" + renderedText(document) : "n");
    if (document) putNodes(document);
    put(".");
}

function putFrames(frame, path) {
    putFrame(frame, path);
    for (let i = 0; i < frame.length; ++i) putFrames(frame[i], path + i + "/");
}

function pathOf(frame) {
    if (frame === frame.parent) return "";
    const parent = frame.parent;
    for (let i = 0; i < parent.length; ++i) {
        if (parent[i] === frame) return pathOf(parent) + i + "/";
    }
    return "gone";
}

if (mode === "all") putFrames(window, ""); else putFrame(window, pathOf(window));
return out.toWellFormed(); // with lone surrogates it would not get out of here
}))js";
