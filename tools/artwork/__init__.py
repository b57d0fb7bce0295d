"""Drawing of the default skin and the toolbar pictures (see tools/make_artwork.py)."""
