"""What the art scripts share: pictures as plain pixels, and the skin definition."""
