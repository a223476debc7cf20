# SPDX-License-Identifier: Apache-2.0
"""Texts as words, as they are compared. What the scripts share."""
import re
import unicodedata

IDEOGRAPHS = '\u3040-\u30ff\u3400-\u9fff\uac00-\ud7af\uf900-\ufaff'
WORD = re.compile('[%s]|[^\\W%s]+' % (IDEOGRAPHS, IDEOGRAPHS))


def words(text):
    return WORD.findall(unicodedata.normalize('NFKC', text).replace('\u00ad', '').lower())
