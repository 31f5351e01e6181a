"""What a call that fails says."""

import re

import brindle
import pytest


def fails(sentence):
    """Expects an error of exactly this sentence."""
    return pytest.raises(brindle.Error, match="^" + re.escape(sentence) + "$")
