tovikxml_sources(collections attribute attribute_col collection collection_base type_collection
                 typed_collections)
