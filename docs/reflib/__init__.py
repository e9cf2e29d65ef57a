"""What docs/make-reference is made of."""
