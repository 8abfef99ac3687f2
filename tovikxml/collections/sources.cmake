tovikxml_sources(collections attribute attribute_col collection collection_base element
                 element_col type_collection
                 typed_collections)
